#include "Platform/ObjectStore/ModelContainer.h"

#include "Platform/ObjectStore/StoreError.h"
#include "Tests/Platform/ObjectStore/LibraryEntities.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <SQLiteCpp/SQLiteCpp.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

constexpr int concurrentStarts = 8;

int modeOf(const QString &path)
{
    struct stat status = {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? int(status.st_mode & 0777)
                                                                     : -1;
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot prepare %s", qPrintable(path));
}

/// The location of a store, empty at first.
struct Place
{
    QTemporaryDir folder;
    QString path = folder.filePath(u"Library.store"_s);

    [[nodiscard]] std::unique_ptr<ModelContainer> open(SchemaVersion version = {1, 0, 0}) const
    {
        return std::make_unique<ModelContainer>(librarySchema(version), StoreConfiguration{path});
    }

    [[nodiscard]] SQLite::Database inspect() const
    {
        return {path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE};
    }

    void addBook() const
    {
        const auto container = open();
        container->mainContext().insert(std::make_shared<Book>(u"B"_s));
        container->mainContext().save();
    }

    /// The error of opening the store. The file must not change.
    [[nodiscard]] std::optional<StoreError> refusal() const
    {
        const QByteArray before = contents(path);
        try {
            (void)open();
            return std::nullopt;
        } catch (const StoreError &error) {
            if (contents(path) != before)
                qFatal("a refused file was changed");
            return error;
        }
    }
};

} // namespace

class ModelContainerTest final : public QObject
{
    Q_OBJECT

private slots:
    void theFileRecordsWhoseItIsAndItsVersion()
    {
        const Place place;
        (void)place.open({1, 2, 3});
        auto file = place.inspect();
        QCOMPARE(file.execAndGet("PRAGMA user_version").getInt(), 1'002'003);
        QCOMPARE(file.execAndGet("PRAGMA application_id").getInt(), 0x5172766C);
    }

    void aSecondOpeningFindsTheSameRows()
    {
        const Place place;
        place.addBook();
        place.addBook();
        QCOMPARE(place.open()->mainContext().fetch<Book>().size(), 2u);
    }

    void theFileAndItsLogAreTheUsersAlone()
    {
        const Place place;
        const mode_t previous = ::umask(0);
        const auto container = place.open();
        container->mainContext().insert(std::make_shared<Book>(u"B"_s));
        container->mainContext().save();
        ::umask(previous);
        QCOMPARE(modeOf(place.path), 0600);
        QCOMPARE(modeOf(place.path + u"-wal"_s), 0600);
        QCOMPARE(modeOf(place.path + u"-shm"_s), 0600);
    }

    void aFileThatOthersCouldReadIsClosedToThem()
    {
        const Place place;
        place.addBook();
        QVERIFY(::chmod(QFile::encodeName(place.path).constData(), 0644) == 0);
        (void)place.open();
        QCOMPARE(modeOf(place.path), 0600);
    }

    void anEmptyFileBecomesAStore()
    {
        const Place place;
        write(place.path, {});
        place.addBook();
        QCOMPARE(place.open()->mainContext().fetch<Book>().size(), 1u);
    }

    void aStoreOfAnotherVersionIsRefused_data()
    {
        QTest::addColumn<int>("version");
        QTest::addColumn<QString>("sentence");
        QTest::newRow("newer patch")
            << 1'000'001
            << u"The store “%1” was written by a newer version of this program: its schema version "
               u"is 1.0.1, this program reads 1.0.0."_s;
        QTest::newRow("newer")
            << 2'000'000
            << u"The store “%1” was written by a newer version of this program: its schema version "
               u"is 2.0.0, this program reads 1.0.0."_s;
        QTest::newRow("older")
            << 999'999
            << u"The store “%1” has the schema version 0.999.999; this program reads 1.0.0."_s;
        QTest::newRow("none")
            << 0 << u"The store “%1” has the schema version 0.0.0; this program reads 1.0.0."_s;
    }

    void aStoreOfAnotherVersionIsRefused()
    {
        QFETCH(int, version);
        QFETCH(QString, sentence);
        const Place place;
        place.addBook();
        place.inspect().exec("PRAGMA user_version = " + std::to_string(version));
        const auto error = place.refusal();
        QVERIFY(error);
        QCOMPARE(error->code(), StoreError::Code::WrongVersion);
        QCOMPARE(error->errorDescription(), sentence.arg(place.path));
    }

    void anotherProgramsDatabaseIsRefused()
    {
        const Place place;
        place.inspect().exec("CREATE TABLE Contacts(name)");
        QVERIFY(::chmod(QFile::encodeName(place.path).constData(), 0644) == 0);
        const auto error = place.refusal();
        QVERIFY(error);
        QCOMPARE(modeOf(place.path), 0644);
        QCOMPARE(error->code(), StoreError::Code::NotAStore);
        QCOMPARE(error->errorDescription(),
                 u"“%1” is not a store of this program."_s.arg(place.path));
    }

    void aFileThatIsNoDatabaseIsRefused()
    {
        const Place place;
        write(place.path, QByteArray("These are my notes.\n").repeated(500));
        const auto error = place.refusal();
        QVERIFY(error);
        QCOMPARE(error->code(), StoreError::Code::Corrupt);
        QCOMPARE(error->errorDescription(),
                 u"The store “%1” is damaged: file is not a database."_s.arg(place.path));
    }

    void aTruncatedStoreIsRefused()
    {
        const Place place;
        place.addBook();
        write(place.path, contents(place.path).first(700));
        const auto error = place.refusal();
        QVERIFY(error);
        QCOMPARE(error->code(), StoreError::Code::Corrupt);
    }

    void aStoreThatLacksATableIsRefused()
    {
        const Place place;
        place.addBook();
        place.inspect().exec("DROP TABLE Bookmark");
        const auto error = place.refusal();
        QVERIFY(error);
        QCOMPARE(error->code(), StoreError::Code::Corrupt);
        QVERIFY(error->errorDescription().contains(u"no such table: Bookmark"_s));
    }

    void damageInsideTheFileFailsTheFetchAndLosesNothingElse()
    {
        const Place place;
        {
            const auto container = place.open();
            container->mainContext().insert(std::make_shared<Author>(u"Nam Cao"_s));
            for (int i = 0; i < 500; ++i)
                container->mainContext().insert(std::make_shared<Book>(QString::number(i)));
            container->mainContext().save();
        }
        const int rootPage =
            place.inspect()
                .execAndGet("SELECT rootpage FROM sqlite_schema WHERE name = 'Book'")
                .getInt();
        const int pageSize = place.inspect().execAndGet("PRAGMA page_size").getInt();
        QByteArray bytes = contents(place.path);
        bytes.replace((rootPage - 1) * pageSize, pageSize, QByteArray(pageSize, '\xFF'));
        write(place.path, bytes);
        const auto container = place.open();
        try {
            (void)container->mainContext().fetch<Book>();
            QFAIL("a damaged table was read");
        } catch (const StoreError &error) {
            QCOMPARE(error.code(), StoreError::Code::Corrupt);
        }
        QCOMPARE(container->mainContext().fetch<Author>().size(), 1u);
    }

    void aFolderInItsPlaceIsRefused()
    {
        const Place place;
        QVERIFY(QDir().mkdir(place.path));
        const auto error = place.refusal();
        QVERIFY(error);
        QCOMPARE(error->code(), StoreError::Code::CannotOpen);
        QCOMPARE(error->errorDescription(),
                 u"The store “%1” could not be opened: Is a directory."_s.arg(place.path));
    }

    void aLogThatCannotBeMadeIsNotTakenForDamage()
    {
        const Place place;
        place.addBook();
        QVERIFY(QDir().mkdir(place.path + u"-wal"_s));
        const auto error = place.refusal();
        QVERIFY(error);
        QVERIFY(error->code() != StoreError::Code::Corrupt);
        QVERIFY(error->errorDescription().startsWith(
            u"The store “%1” could not be opened: "_s.arg(place.path)));
    }

    void aMissingFolderIsRefused()
    {
        Place place;
        place.path = place.folder.filePath(u"missing/Library.store"_s);
        const auto error = place.refusal();
        QVERIFY(error);
        QCOMPARE(
            error->errorDescription(),
            u"The store “%1” could not be opened: No such file or directory."_s.arg(place.path));
    }

    void aStoreInMemoryTouchesNoDisk()
    {
        const QTemporaryDir folder;
        const QString previous = QDir::currentPath();
        QVERIFY(QDir::setCurrent(folder.path()));
        const QStringList before = openRegularFiles();
        {
            ModelContainer container(librarySchema(), {});
            for (int i = 0; i < 2000; ++i)
                container.mainContext().insert(std::make_shared<Book>(QString::number(i)));
            container.mainContext().save();
            QCOMPARE(container.mainContext().fetch<Book>().size(), 2000u);
            QCOMPARE(openRegularFiles(), before);
        }
        QDir::setCurrent(previous);
        QVERIFY(
            QDir(folder.path()).isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden));
    }

    void twoProcessesShareOneStore()
    {
        const Place place;
        const auto ours = place.open();
        const auto theirs = place.open();
        ours->mainContext().insert(std::make_shared<Book>(u"ours"_s));
        ours->mainContext().save();
        theirs->mainContext().insert(std::make_shared<Book>(u"theirs"_s));
        theirs->mainContext().save();
        QCOMPARE(ours->mainContext().fetch<Book>().size(), 2u);
        QCOMPARE(theirs->mainContext().fetch<Book>().size(), 2u);
    }

    void processesThatStartAtOnceAllOpenTheNewStore()
    {
        const Place place;
        std::array<int, 2> gate{};
        QVERIFY(::pipe(gate.data()) == 0);
        std::vector<pid_t> children;
        for (int i = 0; i < concurrentStarts; ++i) {
            const pid_t child = ::fork();
            if (child == 0) {
                char go = 0;
                ::close(gate[1]);
                (void)!::read(gate[0], &go, 1);
                try {
                    place.addBook();
                    ::_exit(0);
                } catch (const StoreError &error) {
                    ::fprintf(stderr, "%s\n", error.what());
                    ::_exit(1);
                }
            }
            children.push_back(child);
        }
        ::close(gate[0]);
        ::close(gate[1]);
        int failures = 0;
        for (const pid_t child : children) {
            int status = 0;
            ::waitpid(child, &status, 0);
            failures += status == 0 ? 0 : 1;
        }
        QCOMPARE(failures, 0);
        QCOMPARE(place.open()->mainContext().fetch<Book>().size(), size_t(concurrentStarts));
    }

private:
    static QStringList openRegularFiles()
    {
        QStringList result;
        const auto links = QDir(u"/proc/self/fd"_s).entryInfoList(QDir::Files | QDir::System);
        for (const QFileInfo &link : links) {
            const QFileInfo target(link.symLinkTarget());
            if (target.isFile() && !target.filePath().startsWith(u"/proc/"_s))
                result.append(target.filePath());
        }
        return result;
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::ModelContainerTest)
#include "ModelContainerTest.moc"
