#include "Core/DI/AppEnvironment.h"

#include "Core/Persistence/ModelContainer+App.h"
#include "Core/Persistence/SwiftDataCheckInRepository.h"
#include "Models/CheckIn.h"
#include "Models/PlaceCandidate.h"
#include "Models/WorkRatings.h"
#include "Platform/Clock/FakeClock.h"
#include "Platform/Files/FakeFileManager.h"
#include "Platform/Files/Xdg/XdgFileManager.h"
#include "Platform/ObjectStore/StoreError.h"
#include "Tests/Support/Services/PrivateMounts.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>
#include <QUuid>
#include <SQLiteCpp/SQLiteCpp.h>
#include <sys/mount.h>
#include <sys/stat.h>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

const FakeClock clock{Instant()};

bool hasPrivateMounts = false;

constexpr auto smallDisk = "size=1m";

int modeOf(const QString &path)
{
    struct stat status = {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? int(status.st_mode & 0777)
                                                                     : -1;
}

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        qFatal("cannot prepare %s", qPrintable(path));
}

/// The empty data folder of a new user.
struct User
{
    QTemporaryDir home;
    QString support = home.filePath(u".local/share"_s);
    QString folder = support + u"/Quorvel"_s;
    QString store = folder + u"/Quorvel.store"_s;
    XdgFileManager fileManager{XdgBaseDirectories{.dataHome = support}};

    void makeFolder() const { QDir().mkpath(folder); }

    [[nodiscard]] int checkIns() const
    {
        SQLite::Database database(store.toStdString());
        return database.execAndGet("SELECT count(*) FROM CheckIn").getInt();
    }
};

/// Mounts a separate file system at the user's data folder while this exists.
class Mount
{
public:
    Mount(const QString &path, unsigned long flags)
        : m_path(QFile::encodeName(path))
    {
        QDir().mkpath(path);
        if (::mount("tmpfs", m_path.constData(), "tmpfs", flags, smallDisk) != 0)
            qFatal("cannot mount at %s", m_path.constData());
    }
    Mount(const Mount &) = delete;
    Mount &operator=(const Mount &) = delete;
    ~Mount() { ::umount2(m_path.constData(), MNT_DETACH); }

    void makeReadOnly() const
    {
        if (::mount(nullptr, m_path.constData(), nullptr, MS_REMOUNT | MS_RDONLY, smallDisk) != 0)
            qFatal("cannot remount %s", m_path.constData());
    }

private:
    QByteArray m_path;
};

std::shared_ptr<CheckIn> visit(CheckInRepository &repository, const QString &note)
{
    const PlaceCandidate place{.id = u"1"_s, .name = u"Cà phê"_s, .mapItemIdentifier = u"n/1"_s};
    return std::make_shared<CheckIn>(QUuid::createUuid(), Instant(), note, std::nullopt,
                                     std::nullopt, WorkRatings{3, 3, 3, 3}, std::nullopt,
                                     repository.findOrCreateCafe(place));
}

} // namespace

class AppEnvironmentTest final : public QObject
{
    Q_OBJECT

private slots:
    void aFirstStartMakesTheFolderAndTheStore()
    {
        const User user;
        const AppEnvironment environment(user.fileManager, clock);
        QVERIFY(environment.checkInRepository());
        QCOMPARE(environment.setupError(), std::optional<QString>());
        QCOMPARE(modeOf(user.folder), 0700);
        QCOMPARE(modeOf(user.store), 0600);
    }

    void aSecondStartReusesBoth()
    {
        const User user;
        {
            const AppEnvironment first(user.fileManager, clock);
            auto &repository = *first.checkInRepository();
            repository.save(visit(repository, u"kept"_s));
        }
        const AppEnvironment second(user.fileManager, clock);
        QCOMPARE(second.setupError(), std::optional<QString>());
        QCOMPARE(second.checkInRepository()->allCheckIns().size(), 1u);
    }

    void theRepositoryKnowsThePhotoFolder()
    {
        const User user;
        const AppEnvironment environment(user.fileManager, clock);
        const auto *repository =
            dynamic_cast<SwiftDataCheckInRepository *>(environment.checkInRepository());
        QVERIFY(repository);
        QCOMPARE(repository->photoStore().directoryURL().toLocalFile(),
                 user.folder + u"/photos/"_s);
        QVERIFY(!QFileInfo::exists(user.folder + u"/photos"_s));
    }

    void theStoreRecordsItsVersion()
    {
        const User user;
        (void)AppEnvironment(user.fileManager, clock);
        SQLite::Database database(user.store.toStdString());
        QCOMPARE(database.execAndGet("PRAGMA user_version").getInt(), 1'000'000);
    }

    void aStoreInMemoryAsksForNoFolder()
    {
        const FakeFileManager fileManager({u"/nowhere"_s});
        SwiftDataCheckInRepository repository(AppModelContainer::make(InMemory::Yes, fileManager),
                                              CheckInPhotoStore(fileManager), clock);
        repository.save(visit(repository, u"fleeting"_s));
        QCOMPARE(repository.allCheckIns().size(), 1u);
        QVERIFY(fileManager.createdRoots.isEmpty());
        QVERIFY(fileManager.createdDirectories.isEmpty());
    }

    void theApplicationSupportFolderIsMadeBeforeOurs()
    {
        const QTemporaryDir folder;
        const FakeFileManager fileManager({folder.path()});
        QVERIFY_THROWS_EXCEPTION(StoreError,
                                 (void)AppModelContainer::make(InMemory::No, fileManager));
        QCOMPARE(fileManager.createdRoots, QStringList{folder.path()});
        QCOMPARE(fileManager.createdDirectories, QStringList{folder.filePath(u"Quorvel"_s)});
    }

    void aFolderThatCannotBeMadeIsTheSetupError_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("Application Support") << u"/nowhere"_s;
        QTest::newRow("ours") << u"/nowhere/Quorvel"_s;
    }

    void aFolderThatCannotBeMadeIsTheSetupError()
    {
        QFETCH(QString, path);
        FakeFileManager fileManager({u"/nowhere"_s});
        fileManager.failures.insert(path,
                                    FileError(FileError::Operation::CreateFolder, path, ENOSPC));
        const AppEnvironment environment(fileManager, clock);
        QVERIFY(!environment.checkInRepository());
        QCOMPARE(environment.setupError(),
                 std::optional(
                     u"The folder “%1” could not be created: No space left on device"_s.arg(path)));
    }

    void aReadOnlyApplicationSupportFolderIsTheSetupError()
    {
        if (!hasPrivateMounts)
            QSKIP("the kernel lets this user mount nothing");
        const User user;
        const Mount disk(user.support, MS_RDONLY);
        const AppEnvironment environment(user.fileManager, clock);
        QVERIFY(!environment.checkInRepository());
        QCOMPARE(environment.setupError(),
                 std::optional(u"The folder “%1” could not be created: Read-only file system"_s.arg(
                     user.folder)));
    }

    void aStoreOnAReadOnlyDiskIsTheSetupError()
    {
        if (!hasPrivateMounts)
            QSKIP("the kernel lets this user mount nothing");
        const User user;
        const Mount disk(user.support, 0);
        (void)AppEnvironment(user.fileManager, clock);
        disk.makeReadOnly();
        const AppEnvironment environment(user.fileManager, clock);
        QVERIFY(!environment.checkInRepository());
        QCOMPARE(environment.setupError(),
                 std::optional(u"The store “%1” could not be opened: Read-only file system."_s.arg(
                     user.store)));
    }

    void aFullDiskFailsTheSaveAndLosesNothing()
    {
        if (!hasPrivateMounts)
            QSKIP("the kernel lets this user mount nothing");
        const User user;
        const Mount disk(user.support, 0);
        const AppEnvironment environment(user.fileManager, clock);
        auto &repository = *environment.checkInRepository();
        repository.save(visit(repository, u"before"_s));
        const auto large = visit(repository, QString(700'000, u'x'));
        const QString ballast = user.support + u"/ballast"_s;
        write(ballast, QByteArray(300'000, 'x'));

        const auto failure = [&]() -> std::optional<StoreError::Code> {
            try {
                repository.save(large);
                return std::nullopt;
            } catch (const StoreError &error) {
                return error.code();
            }
        };
        QCOMPARE(failure(), StoreError::Code::Full);
        QVERIFY(large->isPending());
        QCOMPARE(user.checkIns(), 1);
        QCOMPARE(failure(), StoreError::Code::Full);

        QVERIFY(QFile::remove(ballast));
        repository.save(large);
        QVERIFY(large->isStored());
        QCOMPARE(user.checkIns(), 2);
    }

    void aStartOnAFullDiskIsTheSetupErrorAndTheNextOneSucceeds()
    {
        if (!hasPrivateMounts)
            QSKIP("the kernel lets this user mount nothing");
        const User user;
        const Mount disk(user.support, 0);
        const QString ballast = user.support + u"/ballast"_s;
        write(ballast, QByteArray(1'020'000, 'x'));
        {
            const AppEnvironment environment(user.fileManager, clock);
            QVERIFY(!environment.checkInRepository());
            QCOMPARE(environment.setupError(),
                     std::optional(u"The store “%1” could not be opened: The disk could not be "
                                   u"read or written."_s.arg(user.store)));
        }
        QVERIFY(QFile::remove(ballast));
        const AppEnvironment environment(user.fileManager, clock);
        QCOMPARE(environment.setupError(), std::optional<QString>());
    }

    void aCorruptStoreIsTheSetupErrorAndStaysAsItWas()
    {
        const User user;
        user.makeFolder();
        const auto garbage = QByteArray("not a store ").repeated(1000);
        write(user.store, garbage);
        const AppEnvironment environment(user.fileManager, clock);
        QVERIFY(!environment.checkInRepository());
        QCOMPARE(
            environment.setupError(),
            std::optional(u"The store “%1” is damaged: file is not a database."_s.arg(user.store)));
        QFile file(user.store);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), garbage);
    }

    void aStoreOfANewerVersionIsTheSetupError()
    {
        const User user;
        (void)AppEnvironment(user.fileManager, clock);
        SQLite::Database(user.store.toStdString(), SQLite::OPEN_READWRITE)
            .exec("PRAGMA user_version = 1001000");
        const AppEnvironment environment(user.fileManager, clock);
        QVERIFY(!environment.checkInRepository());
        QVERIFY(environment.setupError()->contains(u"newer version"_s));
        QVERIFY(environment.setupError()->contains(u"1.1.0"_s));
    }
};

} // namespace quorvel::tests

int main(int argc, char **argv)
{
    quorvel::tests::hasPrivateMounts = quorvel::tests::enterPrivateMounts();
    const QCoreApplication application(argc, argv);
    quorvel::tests::AppEnvironmentTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "AppEnvironmentTest.moc"
