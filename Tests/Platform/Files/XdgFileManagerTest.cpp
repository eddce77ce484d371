#include "Platform/Files/Xdg/XdgFileManager.h"

#include "Platform/Files/FileError.h"
#include "Tests/Support/Services/PrivateMounts.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcessEnvironment>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>
#include <sys/stat.h>

#include <clocale>
#include <functional>
#include <optional>

using namespace quorvel;
using namespace Qt::StringLiterals;

namespace {

QStringList syncedFolders;
int syncFailure = 0;
bool hasPrivateMounts = false;

mode_t modeOf(const QString &path)
{
    struct stat entry = {};
    return stat(QFile::encodeName(path).constData(), &entry) == 0 ? entry.st_mode & 07777 : 0;
}

void setMode(const QString &path, mode_t mode)
{
    QCOMPARE(chmod(QFile::encodeName(path).constData(), mode), 0);
}

std::optional<FileError> failureOf(const std::function<void()> &act)
{
    try {
        act();
    } catch (const FileError &error) {
        return error;
    }
    return std::nullopt;
}

} // namespace

/// Replaces the system call of this name in the whole program, and records the folder.
extern "C" int fsync(int descriptor)
{
    const QString link = u"/proc/self/fd/%1"_s.arg(descriptor);
    syncedFolders.append(QFile::symLinkTarget(link));
    errno = syncFailure;
    return syncFailure == 0 ? 0 : -1;
}

class XdgFileManagerTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_folder.emplace();
        syncedFolders.clear();
        syncFailure = 0;
    }

    void applicationSupportIsTheDataHome()
    {
        const XdgFileManager manager({.dataHome = u"/home/ana/.local/share"_s});
        QCOMPARE(manager.urls(UserDirectory::ApplicationSupport),
                 QStringList{u"/home/ana/.local/share"_s});
    }

    void theHomeIsThatOfTheDirectories()
    {
        QCOMPARE(XdgFileManager({.home = u"/home/ana"_s}).homeDirectory(), u"/home/ana"_s);
    }

    void downloadsAreWhereTheUserHasThem()
    {
        QFile file(m_folder->filePath(u"user-dirs.dirs"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("XDG_DOWNLOAD_DIR=\"/data/incoming\"\n");
        file.close();
        const XdgFileManager manager({.configHome = m_folder->path()});
        QCOMPARE(manager.urls(UserDirectory::Downloads), QStringList{u"/data/incoming"_s});
    }

    void askingForAFolderTouchesNoDisk()
    {
        QCOMPARE(manager().url(UserDirectory::ApplicationSupport, CreateIfMissing::No), dataHome());
        QVERIFY(!QFileInfo::exists(dataHome()));
    }

    void aMissingDataHomeIsMadeForItsUserAlone()
    {
        QCOMPARE(manager().url(UserDirectory::ApplicationSupport, CreateIfMissing::Yes),
                 dataHome());
        QCOMPARE(modeOf(dataHome()), mode_t(0700));
    }

    void anExistingDataHomeKeepsItsMode()
    {
        QVERIFY(QDir().mkpath(dataHome()));
        setMode(dataHome(), 0755);
        (void)manager().url(UserDirectory::ApplicationSupport, CreateIfMissing::Yes);
        manager().createPrivateDirectory(dataHome() + u"/Quorvel"_s);
        QCOMPARE(modeOf(dataHome()), mode_t(0755));
    }

    void aFolderAndThoseMissingAboveItAreForTheirUserAlone_data()
    {
        QTest::addColumn<int>("mask");
        QTest::newRow("open umask") << 0;
        QTest::newRow("usual umask") << 022;
        QTest::newRow("umask that takes everything") << 0777;
    }

    void aFolderAndThoseMissingAboveItAreForTheirUserAlone()
    {
        QFETCH(const int, mask);
        const mode_t before = umask(mode_t(mask));
        const auto restore = qScopeGuard([before] { umask(before); });
        manager().createPrivateDirectory(dataHome() + u"/Quorvel"_s);
        for (const QString &path :
             {m_folder->filePath(u"home"_s), m_folder->filePath(u"home/.local"_s), dataHome(),
              dataHome() + u"/Quorvel"_s})
            QCOMPARE(modeOf(path), mode_t(0700));
    }

    void aWiderFolderIsClosed_data()
    {
        QTest::addColumn<int>("before");
        QTest::addColumn<int>("after");
        QTest::newRow("everyone") << 0777 << 0700;
        QTest::newRow("usual") << 0755 << 0700;
        QTest::newRow("group only") << 0710 << 0700;
        QTest::newRow("others only") << 0701 << 0700;
        QTest::newRow("private already") << 0700 << 0700;
        QTest::newRow("narrower stays") << 0500 << 0500;
    }

    void aWiderFolderIsClosed()
    {
        QFETCH(const int, before);
        QFETCH(const int, after);
        const QString path = m_folder->filePath(u"Quorvel"_s);
        QVERIFY(QDir().mkdir(path));
        setMode(path, mode_t(before));
        manager().createPrivateDirectory(path);
        QCOMPARE(int(modeOf(path)), after);
    }

    void somebodyElsesFolderIsLeftAlone()
    {
        const QString path = m_folder->filePath(u"Quorvel"_s);
        QVERIFY(QDir().mkdir(path));
        setMode(path, 0755);
        const uid_t somebodyElse = geteuid() + 1;
        if (chown(QFile::encodeName(path).constData(), somebodyElse, gid_t(-1)) != 0)
            QSKIP("only root can give a folder away");
        manager().createPrivateDirectory(path);
        QCOMPARE(modeOf(path), mode_t(0755));
    }

    void aLinkToAFolderCountsAsThatFolder()
    {
        const QString target = m_folder->filePath(u"elsewhere"_s);
        QVERIFY(QDir().mkdir(target));
        setMode(target, 0755);
        QVERIFY(QFile::link(target, m_folder->filePath(u"Quorvel"_s)));
        manager().createPrivateDirectory(m_folder->filePath(u"Quorvel"_s));
        QCOMPARE(modeOf(target), mode_t(0700));
    }

    void trailingSlashesMakeNoDifference()
    {
        manager().createPrivateDirectory(m_folder->filePath(u"a//Quorvel//"_s));
        QCOMPARE(modeOf(m_folder->filePath(u"a/Quorvel"_s)), mode_t(0700));
    }

    void everyFolderThatGotANewEntryIsSaved()
    {
        manager().createPrivateDirectory(m_folder->filePath(u"a/b"_s));
        QCOMPARE(syncedFolders, (QStringList{m_folder->path(), m_folder->filePath(u"a"_s)}));
    }

    void nothingIsSavedWhenNothingWasMade()
    {
        QVERIFY(QDir().mkdir(m_folder->filePath(u"Quorvel"_s)));
        manager().createPrivateDirectory(m_folder->filePath(u"Quorvel"_s));
        QCOMPARE(syncedFolders, QStringList());
    }

    void aFolderThatCannotBeSavedIsAnError()
    {
        syncFailure = EIO;
        const auto error = failureOf(
            [this] { manager().createPrivateDirectory(m_folder->filePath(u"Quorvel"_s)); });
        QCOMPARE(error, FileError(FileError::Operation::SaveFolder, m_folder->path(), EIO));
    }

    void aFileSystemThatKnowsNoSavingIsNoError()
    {
        syncFailure = EINVAL;
        manager().createPrivateDirectory(m_folder->filePath(u"Quorvel"_s));
        QCOMPARE(syncedFolders, QStringList{m_folder->path()});
    }

    void aFileAmongTheFoldersAboveIsAnError()
    {
        QVERIFY(QFile(m_folder->filePath(u"file"_s)).open(QIODevice::WriteOnly));
        const QString path = m_folder->filePath(u"file/Quorvel"_s);
        const auto error = failureOf([&] { manager().createPrivateDirectory(path); });
        QCOMPARE(error, FileError(FileError::Operation::CreateFolder, path, ENOTDIR));
        QCOMPARE(error->errorDescription(),
                 u"The folder “%1” could not be created: Not a directory"_s.arg(path));
    }

    void aLinkToNowhereIsAnError()
    {
        const QString path = m_folder->filePath(u"Quorvel"_s);
        QVERIFY(QFile::link(m_folder->filePath(u"nowhere"_s), path));
        const auto error =
            failureOf([&] { manager().createPrivateDirectory(path + u"/photos"_s); });
        QCOMPARE(error, FileError(FileError::Operation::CreateFolder, path, EEXIST));
    }

    void aRelativePathIsAnError_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("empty") << QString();
        QTest::newRow("relative") << u"Quorvel"_s;
    }

    void aRelativePathIsAnError()
    {
        QFETCH(const QString, path);
        const auto error = failureOf([&] { manager().createPrivateDirectory(path); });
        QCOMPARE(error, FileError(FileError::Operation::CreateFolder, path, EINVAL));
    }

    void aReadOnlyParentIsAnErrorInTheSystemsWords()
    {
        if (!hasPrivateMounts)
            QSKIP("the kernel allows this user no private mounts");
        const QByteArray parent = QFile::encodeName(m_folder->path());
        QCOMPARE(mount("tmpfs", parent.constData(), "tmpfs", MS_RDONLY, nullptr), 0);
        const auto unmount = qScopeGuard([&parent] { umount(parent.constData()); });

        const QString path = m_folder->filePath(u"Quorvel"_s);
        const auto error = failureOf([&] { manager().createPrivateDirectory(path); });
        QCOMPARE(error, FileError(FileError::Operation::CreateFolder, path, EROFS));
        QCOMPARE(error->errorDescription(),
                 u"The folder “%1” could not be created: Read-only file system"_s.arg(path));
    }

    void aWideFolderThatCannotBeClosedIsAnError()
    {
        if (!hasPrivateMounts)
            QSKIP("the kernel allows this user no private mounts");
        const QByteArray path = QFile::encodeName(m_folder->path());
        QCOMPARE(mount("tmpfs", path.constData(), "tmpfs", MS_RDONLY, "mode=755"), 0);
        const auto unmount = qScopeGuard([&path] { umount(path.constData()); });

        const auto error =
            failureOf([this] { manager().createPrivateDirectory(m_folder->path()); });
        QCOMPARE(error, FileError(FileError::Operation::CloseFolder, m_folder->path(), EROFS));
    }

    void everyFailureHasItsSentence_data()
    {
        QTest::addColumn<FileError::Operation>("operation");
        QTest::addColumn<QString>("sentence");
        QTest::newRow("create") << FileError::Operation::CreateFolder
                                << u"The folder “/x/Quorvel” could not be created: "
                                   "Permission denied"_s;
        QTest::newRow("close") << FileError::Operation::CloseFolder
                               << u"The folder “/x/Quorvel” could not be closed to other users: "
                                  "Permission denied"_s;
        QTest::newRow("save") << FileError::Operation::SaveFolder
                              << u"The folder “/x/Quorvel” could not be saved to disk: "
                                 "Permission denied"_s;
        QTest::newRow("write") << FileError::Operation::WriteFile
                               << u"The file “/x/Quorvel” could not be written: "
                                  "Permission denied"_s;
    }

    void everyFailureHasItsSentence()
    {
        QFETCH(const FileError::Operation, operation);
        QFETCH(const QString, sentence);
        const FileError error(operation, u"/x/Quorvel"_s, EACCES);
        QCOMPARE(error.errorDescription(), sentence);
        QCOMPARE(QString::fromUtf8(error.what()), sentence);
    }

    void aPathWithPlaceholdersIsQuotedAsItIs()
    {
        const FileError error(FileError::Operation::CreateFolder, u"/x/%2 %3"_s, EACCES);
        QCOMPARE(error.errorDescription(),
                 u"The folder “/x/%2 %3” could not be created: Permission denied"_s);
    }

    void theProcessOwnManagerReadsTheEnvironment()
    {
        QCOMPARE(
            FileManager::standard().urls(UserDirectory::ApplicationSupport),
            QStringList{XdgBaseDirectories::of(QProcessEnvironment::systemEnvironment()).dataHome});
    }

private:
    [[nodiscard]] QString dataHome() const { return m_folder->filePath(u"home/.local/share"_s); }
    [[nodiscard]] XdgFileManager manager() const
    {
        return XdgFileManager({.dataHome = dataHome()});
    }

    std::optional<QTemporaryDir> m_folder;
};

int main(int argc, char *argv[])
{
    hasPrivateMounts = tests::enterPrivateMounts();
    QCoreApplication application(argc, argv);
    // The system's reasons are in the user's language. These sentences are in English.
    std::setlocale(LC_MESSAGES, "C");
    XdgFileManagerTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "XdgFileManagerTest.moc"
