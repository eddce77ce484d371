#include "Platform/Files/PrivateFile.h"

#include "Platform/Files/FileError.h"
#include "Tests/Support/Services/PrivateMounts.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>
#include <sys/stat.h>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

QStringList synced;
int syncFailure = 0;
bool hasPrivateMounts = false;

} // namespace

/// Replaces the system call of this name in the whole program, and records what was synced.
extern "C" int fsync(int descriptor)
{
    synced.append(
        QFileInfo(QFile::symLinkTarget(u"/proc/self/fd/%1"_s.arg(descriptor))).fileName());
    errno = syncFailure;
    return syncFailure == 0 ? 0 : -1;
}

namespace quorvel::tests {

class PrivateFileTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_folder.emplace();
        synced.clear();
        syncFailure = 0;
    }

    void itHoldsWhatWasWritten_data()
    {
        QTest::addColumn<QByteArray>("written");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("zeros") << QByteArray(3, '\0');
        QTest::newRow("8 MB") << QByteArray(8'000'000, 'x');
    }

    void itHoldsWhatWasWritten()
    {
        QFETCH(const QByteArray, written);
        PrivateFile::write(path(), written);
        QCOMPARE(content(), written);
        QCOMPARE(entries(), QStringList{u"visit.png"_s});
    }

    void itsUserAloneCanReadIt_data()
    {
        QTest::addColumn<int>("mask");
        QTest::newRow("open umask") << 0;
        QTest::newRow("usual umask") << 022;
        QTest::newRow("umask that takes everything") << 0777;
    }

    void itsUserAloneCanReadIt()
    {
        QFETCH(const int, mask);
        const mode_t before = umask(mode_t(mask));
        const auto restore = qScopeGuard([before] { umask(before); });
        PrivateFile::write(path(), "a visit");
        QCOMPARE(mode(), mode_t(0600));
    }

    void itTakesThePlaceOfAnother()
    {
        PrivateFile::write(path(), "a longer one");
        QCOMPARE(chmod(QFile::encodeName(path()).constData(), 0644), 0);
        PrivateFile::write(path(), "another");
        QCOMPARE(content(), "another"_ba);
        QCOMPARE(mode(), mode_t(0600));
        QCOMPARE(entries(), QStringList{u"visit.png"_s});
    }

    void aLinkIsReplacedAndNotFollowed()
    {
        const QString target = m_folder->filePath(u"target"_s);
        PrivateFile::write(target, "somebody's");
        QVERIFY(QFile::link(target, path()));
        PrivateFile::write(path(), "a visit");
        QVERIFY(!QFileInfo(path()).isSymLink());
        QFile file(target);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), "somebody's"_ba);
    }

    void theLongestNameIsWritable()
    {
        const QString longest = m_folder->filePath(QString(255, u'a'));
        PrivateFile::write(longest, "a visit");
        QVERIFY(QFileInfo::exists(longest));
    }

    void theFileIsOnTheDiskBeforeItsName()
    {
        PrivateFile::write(path(), "a visit");
        QCOMPARE(synced.size(), 2);
        QVERIFY(synced[0].startsWith(u".quorvel-"_s));
        QCOMPARE(synced[1], QFileInfo(m_folder->path()).fileName());
    }

    void aMissingFolderIsAnErrorAndIsNotMade()
    {
        const QString missing = m_folder->filePath(u"missing/visit.png"_s);
        QVERIFY(failure(missing) == FileError(FileError::Operation::WriteFile, missing, ENOENT));
        QCOMPARE(entries(), QStringList());
    }

    void aFileThatCannotBeSavedLeavesTheOneBefore()
    {
        PrivateFile::write(path(), "before");
        syncFailure = EIO;
        QVERIFY(failure(path()) == FileError(FileError::Operation::WriteFile, path(), EIO));
        QCOMPARE(content(), "before"_ba);
        QCOMPARE(entries(), QStringList{u"visit.png"_s});
    }

    void aFileSystemThatKnowsNoSavingIsNoError()
    {
        syncFailure = EINVAL;
        PrivateFile::write(path(), "a visit");
        QCOMPARE(content(), "a visit"_ba);
    }

    void aFolderInItsPlaceIsAnErrorAndStays()
    {
        QVERIFY(QDir().mkdir(path()));
        QVERIFY(failure(path()) == FileError(FileError::Operation::WriteFile, path(), EISDIR));
        QCOMPARE(entries(), QStringList{u"visit.png"_s});
        QVERIFY(QFileInfo(path()).isDir());
    }

    void aFullDiskLeavesTheOneBefore()
    {
        if (!hasPrivateMounts)
            QSKIP("the kernel allows this user no private mounts");
        const QByteArray folder = QFile::encodeName(m_folder->path());
        QCOMPARE(mount("tmpfs", folder.constData(), "tmpfs", 0, "size=64k"), 0);
        const auto unmount = qScopeGuard([&folder] { umount(folder.constData()); });
        PrivateFile::write(path(), "before");
        const auto error = failure(path(), QByteArray(100'000, 'x'));
        QVERIFY(error == FileError(FileError::Operation::WriteFile, path(), ENOSPC));
        QCOMPARE(content(), "before"_ba);
        QCOMPARE(entries(), QStringList{u"visit.png"_s});
    }

private:
    [[nodiscard]] QString path() const { return m_folder->filePath(u"visit.png"_s); }
    [[nodiscard]] QByteArray content() const
    {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : "cannot be read"_ba;
    }
    [[nodiscard]] mode_t mode() const
    {
        struct stat entry = {};
        return stat(QFile::encodeName(path()).constData(), &entry) == 0 ? entry.st_mode & 07777 : 0;
    }
    [[nodiscard]] QStringList entries() const
    {
        return QDir(m_folder->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
    [[nodiscard]] static std::optional<FileError> failure(const QString &path,
                                                          const QByteArray &written = "a visit")
    {
        try {
            PrivateFile::write(path, written);
        } catch (const FileError &error) {
            return error;
        }
        return std::nullopt;
    }

    std::optional<QTemporaryDir> m_folder;
};

} // namespace quorvel::tests

int main(int argc, char *argv[])
{
    hasPrivateMounts = quorvel::tests::enterPrivateMounts();
    QCoreApplication application(argc, argv);
    quorvel::tests::PrivateFileTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "PrivateFileTest.moc"
