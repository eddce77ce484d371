#include "Platform/LoginItem/XdgAutostartLoginItem.h"

#include "Platform/LoginItem/LoginItemError.h"
#include "Tests/Support/Services/PrivateMounts.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

#include <clocale>
#include <optional>

using namespace quorvel;
using namespace Qt::StringLiterals;

using Status = LoginItem::Status;

Q_DECLARE_METATYPE(quorvel::LoginItem::Status)

namespace {

const QString generator = u"/usr/lib/systemd/user-generators/systemd-xdg-autostart-generator"_s;
const QString fileName = u"autostart/com.zantho.quorvel.desktop"_s;
bool hasPrivateMounts = false;

} // namespace

class XdgAutostartLoginItemTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_folder.emplace();
        QVERIFY(QDir(m_folder->path()).mkpath(u"bin"_s));
        makeProgram(executable());
    }

    void withoutAFileNothingIsRegistered() { QCOMPARE(item().status(), Status::NotRegistered); }

    void registeringWritesTheEntry()
    {
        item().registerItem();
        const QByteArray program = QFile::encodeName(executable());
        QCOMPARE(read(userFile()), "[Desktop Entry]\n"
                                   "Type=Application\n"
                                   "Name=Quorvel\n"
                                   "Icon=com.zantho.quorvel\n"
                                   "TryExec=" +
                                       program + "\nExec=\"" + program +
                                       "\" --background\nX-GNOME-Autostart-enabled=true\n");
        QCOMPARE(item().status(), Status::Enabled);
    }

    void registeringLeavesNothingElseInTheFolder()
    {
        item().registerItem();
        QCOMPARE(QDir(m_folder->filePath(u"config/autostart"_s)).entryList(QDir::Files),
                 QStringList{u"com.zantho.quorvel.desktop"_s});
    }

    void theEntryAndItsFoldersAreForTheirUserAlone()
    {
        item().registerItem();
        const auto others = QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;
        for (const QString &path : {u"config"_s, u"config/autostart"_s, u"config/"_s + fileName})
            QVERIFY(!(QFile::permissions(m_folder->filePath(path)) & others));
    }

    void registeringAgainTakesBackWhatTheUserSwitchedOff()
    {
        write(userFile(), entry("Hidden=true\nX-MATE-Autostart-enabled=false\n"));
        item().registerItem();
        QCOMPARE(item().status(), Status::Enabled);
    }

    void programsWithSignsOfTheNotationAreEnabled_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("blank") << u"quor vel"_s;
        QTest::newRow("quotes") << u"q\"uor'vel"_s;
        QTest::newRow("dollar and backtick") << u"q$uor`vel"_s;
        QTest::newRow("backslash") << u"q\\uor\\nvel"_s;
        QTest::newRow("percent") << u"q%uor%%vel"_s;
        QTest::newRow("line end") << u"q\nuor"_s;
        QTest::newRow("accents") << u"quán"_s;
    }

    void programsWithSignsOfTheNotationAreEnabled()
    {
        QFETCH(const QString, name);
        const QString program = m_folder->filePath(u"bin/"_s + name);
        makeProgram(program);
        XdgAutostartLoginItem item(directories(), program);
        item.registerItem();
        QCOMPARE(item.status(), Status::Enabled);
    }

    void theStatusIsReadFromTheEntry_data()
    {
        QTest::addColumn<QByteArray>("lines");
        QTest::addColumn<Status>("status");
        QTest::newRow("plain") << QByteArray() << Status::Enabled;
        QTest::newRow("hidden") << QByteArray("Hidden=true\n") << Status::RequiresApproval;
        QTest::newRow("hidden, in capitals")
            << QByteArray("Hidden=True\n") << Status::RequiresApproval;
        QTest::newRow("not hidden") << QByteArray("Hidden=false\n") << Status::Enabled;
        QTest::newRow("off in GNOME")
            << QByteArray("X-GNOME-Autostart-enabled=false\n") << Status::RequiresApproval;
        QTest::newRow("on in GNOME")
            << QByteArray("X-GNOME-Autostart-enabled=true\n") << Status::Enabled;
        QTest::newRow("off in MATE")
            << QByteArray("X-MATE-Autostart-enabled=false\n") << Status::RequiresApproval;
        QTest::newRow("on in MATE")
            << QByteArray("X-MATE-Autostart-enabled=true\n") << Status::Enabled;
        QTest::newRow("hidden by another group")
            << QByteArray("[Other]\nHidden=true\n") << Status::Enabled;
        QTest::newRow("a test that runs") << QByteArray("TryExec=/bin/sh\n") << Status::Enabled;
        QTest::newRow("a test in the path") << QByteArray("TryExec=sh\n") << Status::Enabled;
        QTest::newRow("a test that is missing")
            << QByteArray("TryExec=/nowhere/quorvel\n") << Status::NotFound;
        QTest::newRow("a test that is empty") << QByteArray("TryExec=\n") << Status::NotFound;
        QTest::newRow("another program") << QByteArray("Exec=/bin/sh\n") << Status::NotFound;
        QTest::newRow("a missing program")
            << QByteArray("Exec=/nowhere/quorvel\n") << Status::NotFound;
        QTest::newRow("no program") << QByteArray("Exec=\n") << Status::NotFound;
        QTest::newRow("a program with an open quote")
            << QByteArray("Exec=\"/bin/sh\n") << Status::NotFound;
        QTest::newRow("off, and the program is gone")
            << QByteArray("Hidden=true\nExec=/nowhere/quorvel\n") << Status::RequiresApproval;
    }

    void theStatusIsReadFromTheEntry()
    {
        QFETCH(const QByteArray, lines);
        QFETCH(const Status, status);
        write(userFile(), entry(lines));
        QCOMPARE(item().status(), status);
    }

    void anEntryWithCrlfAndArgumentsIsRead()
    {
        write(userFile(),
              "[Desktop Entry]\r\nExec=" + QFile::encodeName(executable()) + " --later\r\n");
        QCOMPARE(item().status(), Status::Enabled);
    }

    void aFileThatIsNoEntryIsNotFound_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("another group") << QByteArray("[Other]\nExec=/bin/sh\n");
        QTest::newRow("no program") << QByteArray("[Desktop Entry]\n");
    }

    void aFileThatIsNoEntryIsNotFound()
    {
        QFETCH(const QByteArray, text);
        write(userFile(), text);
        QCOMPARE(item().status(), Status::NotFound);
    }

    void aFolderInTheFilesPlaceIsNotFound()
    {
        QVERIFY(QDir().mkpath(userFile()));
        QCOMPARE(item().status(), Status::NotFound);
    }

    void aProgramThatMayNotRunIsNotFound()
    {
        item().registerItem();
        QVERIFY(QFile::setPermissions(executable(), QFile::ReadOwner | QFile::WriteOwner));
        QCOMPARE(item().status(), Status::NotFound);
    }

    void aProgramNamedThroughALinkIsOurs()
    {
        const QString link = m_folder->filePath(u"bin/link"_s);
        QVERIFY(QFile::link(executable(), link));
        write(userFile(), "[Desktop Entry]\nExec=" + QFile::encodeName(link) + '\n');
        QCOMPARE(item().status(), Status::Enabled);
    }

    void aProgramInThePathIsOurs()
    {
        const QByteArray before = qgetenv("PATH");
        qputenv("PATH", QFile::encodeName(m_folder->filePath(u"bin"_s)) + ':' + before);
        const auto restore = qScopeGuard([&before] { qputenv("PATH", before); });
        write(userFile(), "[Desktop Entry]\nExec=quorvel\n");
        QCOMPARE(item().status(), Status::Enabled);
    }

    void unregisteringDeletesTheFile()
    {
        item().registerItem();
        item().unregisterItem();
        QVERIFY(!QFile::exists(userFile()));
        QCOMPARE(item().status(), Status::NotRegistered);
    }

    void theMachinesFileCountsWithoutOneOfTheUsers()
    {
        write(machineFile(u"xdg2"_s), entry({}));
        QCOMPARE(item().status(), Status::Enabled);
        write(machineFile(u"xdg1"_s), entry("Hidden=true\n"));
        QCOMPARE(item().status(), Status::RequiresApproval);
    }

    void theUsersFileHidesTheMachines()
    {
        write(machineFile(u"xdg1"_s), entry({}));
        write(userFile(), entry("Hidden=true\n"));
        QCOMPARE(item().status(), Status::RequiresApproval);
    }

    void unregisteringHidesTheMachinesFile_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::newRow("first") << u"xdg1"_s;
        QTest::newRow("second") << u"xdg2"_s;
    }

    void unregisteringHidesTheMachinesFile()
    {
        QFETCH(const QString, folder);
        write(machineFile(folder), entry({}));
        item().unregisterItem();
        QCOMPARE(read(userFile()),
                 QByteArray("[Desktop Entry]\nType=Application\nName=Quorvel\nHidden=true\n"));
        QCOMPARE(item().status(), Status::RequiresApproval);
        QCOMPARE(read(machineFile(folder)), entry({}));
    }

    void aFullDiskLeavesTheOldEntryWhole()
    {
        if (!hasPrivateMounts)
            QSKIP("the kernel allows this user no private mounts");
        QVERIFY(QDir().mkpath(m_folder->filePath(u"config"_s)));
        const QByteArray config = QFile::encodeName(m_folder->filePath(u"config"_s));
        QCOMPARE(mount("tmpfs", config.constData(), "tmpfs", 0, "size=8k"), 0);
        const auto unmount = qScopeGuard([&config] { umount(config.constData()); });
        write(userFile(), entry("Hidden=true\n"));
        write(m_folder->filePath(u"config/filler"_s), QByteArray(4096, 'x'));

        try {
            item().registerItem();
        } catch (const LoginItemError &error) {
            QCOMPARE(error.errorDescription(),
                     u"Quorvel could not be added to the programs that start at login: The file "
                     "“%1” could not be written: No space left on device"_s.arg(userFile()));
            QCOMPARE(read(userFile()), entry("Hidden=true\n"));
            return;
        }
        QFAIL("an entry was written to a full disk");
    }

    void aFileThatCannotBeDeletedIsAnError()
    {
        if (!hasPrivateMounts)
            QSKIP("the kernel allows this user no private mounts");
        item().registerItem();
        const QByteArray folder = QFile::encodeName(m_folder->filePath(u"config"_s));
        QCOMPARE(mount(folder.constData(), folder.constData(), nullptr, MS_BIND, nullptr), 0);
        const auto unmount = qScopeGuard([&folder] { umount(folder.constData()); });
        QCOMPARE(
            mount(nullptr, folder.constData(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr),
            0);
        try {
            item().unregisterItem();
        } catch (const LoginItemError &error) {
            QCOMPARE(error.errorDescription(),
                     u"Quorvel could not be removed from the programs that start at login: "
                     "Read-only file system"_s);
            QCOMPARE(item().status(), Status::Enabled);
            return;
        }
        QFAIL("a file was deleted from a read-only disk");
    }

    void theSystemsOwnStarterTakesTheEntry_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("start");
        QTest::newRow("plain") << u"quorvel"_s << QByteArray("%1");
        QTest::newRow("blank") << u"quor vel"_s << QByteArray("\"%1\"");
        QTest::newRow("quote, dollar, backtick") << u"q\"u$o`r"_s << QByteArray("\"%1\"");
    }

    void theSystemsOwnStarterTakesTheEntry()
    {
        if (!QFile::exists(generator))
            QSKIP("this machine starts no programs at login through systemd");
        QFETCH(const QString, name);
        QFETCH(const QByteArray, start);
        const QString program = m_folder->filePath(u"bin/"_s + name);
        makeProgram(program);
        XdgAutostartLoginItem(directories(), program).registerItem();

        QByteArray path = QFile::encodeName(program);
        path.replace('"', "\\\"").replace('$', "\\$").replace('`', "\\`");
        QCOMPARE(generatedStart(),
                 "ExecStart=:" + QByteArray(start).replace("%1", path) + " --background");
    }

    void theSystemsOwnStarterLeavesOutAnUnregisteredProgram()
    {
        if (!QFile::exists(generator))
            QSKIP("this machine starts no programs at login through systemd");
        write(machineFile(u"xdg1"_s), entry({}));
        QVERIFY(!generatedStart().isEmpty());
        item().unregisterItem();
        QCOMPARE(generatedStart(), QByteArray());
    }

private:
    [[nodiscard]] XdgBaseDirectories directories() const
    {
        return {.configHome = m_folder->filePath(u"config"_s),
                .configDirs = {m_folder->filePath(u"xdg1"_s), m_folder->filePath(u"xdg2"_s)}};
    }
    [[nodiscard]] QString executable() const { return m_folder->filePath(u"bin/quorvel"_s); }
    [[nodiscard]] QString userFile() const { return m_folder->filePath(u"config/"_s + fileName); }
    [[nodiscard]] QString machineFile(const QString &folder) const
    {
        return m_folder->filePath(folder + u'/' + fileName);
    }
    [[nodiscard]] XdgAutostartLoginItem item() const { return {directories(), executable()}; }

    /// Our entry with additional lines that change it.
    [[nodiscard]] QByteArray entry(const QByteArray &lines) const
    {
        return "[Desktop Entry]\nType=Application\nName=Quorvel\nExec=" +
               QFile::encodeName(executable()) + '\n' + lines;
    }

    static void makeProgram(const QString &path)
    {
        write(path, "#!/bin/sh\n");
        QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner));
    }

    static void write(const QString &path, const QByteArray &text)
    {
        QVERIFY(QDir().mkpath(QFileInfo(path).path()));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    }

    static QByteArray read(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// The command line by which systemd would start the program; empty if it would not.
    QByteArray generatedStart()
    {
        const QTemporaryDir units;
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_CONFIG_HOME"_s, directories().configHome);
        environment.insert(u"XDG_CONFIG_DIRS"_s, directories().configDirs.join(u':'));
        process.setProcessEnvironment(environment);
        process.start(generator, {units.path(), units.path(), units.path()});
        if (!process.waitForFinished() || process.exitCode() != 0)
            return "the generator failed";
        const QByteArray unit = read(units.filePath(u"app-com.zantho.quorvel@autostart.service"_s));
        const qsizetype begin = unit.indexOf("ExecStart=");
        return begin < 0 ? QByteArray() : unit.mid(begin, unit.indexOf('\n', begin) - begin);
    }

    std::optional<QTemporaryDir> m_folder;
};

int main(int argc, char *argv[])
{
    hasPrivateMounts = tests::enterPrivateMounts();
    QCoreApplication application(argc, argv);
    std::setlocale(LC_MESSAGES, "C");
    XdgAutostartLoginItemTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "XdgAutostartLoginItemTest.moc"
