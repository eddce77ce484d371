#include "Platform/Files/FakeFileManager.h"
#include "Platform/Files/XdgFileManager.h"

#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>

using namespace quorvel;
using namespace Qt::StringLiterals;

namespace {

/// What the same cases need of either file manager: a world in which they can fail.
struct Subject
{
    QTemporaryDir folder;
    std::unique_ptr<FileManager> manager;
    /// Has a plain file stand at the path.
    std::function<void(const QString &)> putFile;

    [[nodiscard]] QString root() const { return folder.path() + u"/data/share"_s; }
};

std::unique_ptr<Subject> live()
{
    auto subject = std::make_unique<Subject>();
    subject->manager =
        std::make_unique<XdgFileManager>(XdgBaseDirectories{.dataHome = subject->root()});
    subject->putFile = [](const QString &path) {
        QVERIFY(QDir().mkpath(QFileInfo(path).path()));
        QVERIFY(QFile(path).open(QIODevice::WriteOnly));
    };
    return subject;
}

std::unique_ptr<Subject> fake()
{
    auto subject = std::make_unique<Subject>();
    auto manager = std::make_unique<FakeFileManager>(QStringList{subject->root()});
    subject->putFile = [manager = manager.get()](const QString &path) {
        manager->failures.insert(path, {FileError::Operation::CreateFolder, path, EEXIST});
    };
    subject->manager = std::move(manager);
    return subject;
}

} // namespace

/// One promise, kept by the scripted file manager as by the real one.
class FileManagerContractTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data()
    {
        QTest::addColumn<bool>("isLive");
        QTest::newRow("fake") << false;
        QTest::newRow("live") << true;
    }

    void theFirstUrlIsTheUrl()
    {
        const auto subject = make();
        const QStringList urls = subject->manager->urls(UserDirectory::ApplicationSupport);
        QCOMPARE(urls, QStringList{subject->root()});
        QCOMPARE(subject->manager->url(UserDirectory::ApplicationSupport, CreateIfMissing::No),
                 urls.first());
        QCOMPARE(subject->manager->url(UserDirectory::ApplicationSupport, CreateIfMissing::Yes),
                 urls.first());
    }

    void aFolderMayBeMadeTwice()
    {
        const auto subject = make();
        subject->manager->createPrivateDirectory(subject->root() + u"/Quorvel"_s);
        subject->manager->createPrivateDirectory(subject->root() + u"/Quorvel"_s);
    }

    void aFileInTheFoldersPlaceIsAnError()
    {
        const auto subject = make();
        const QString path = subject->root() + u"/Quorvel"_s;
        subject->putFile(path);
        try {
            subject->manager->createPrivateDirectory(path);
        } catch (const FileError &error) {
            QCOMPARE(error, FileError(FileError::Operation::CreateFolder, path, EEXIST));
            return;
        }
        QFAIL("a folder was made where a file stands");
    }

    void aFileInTheRootsPlaceIsAnErrorOnlyWhenItHasToBeMade()
    {
        const auto subject = make();
        subject->putFile(subject->root());
        QCOMPARE(subject->manager->url(UserDirectory::ApplicationSupport, CreateIfMissing::No),
                 subject->root());
        QVERIFY_THROWS_EXCEPTION(
            FileError,
            (void)subject->manager->url(UserDirectory::ApplicationSupport, CreateIfMissing::Yes));
    }

private:
    static std::unique_ptr<Subject> make()
    {
        QFETCH_GLOBAL(const bool, isLive);
        return isLive ? live() : fake();
    }
};

QTEST_GUILESS_MAIN(FileManagerContractTest)
#include "FileManagerContractTest.moc"
