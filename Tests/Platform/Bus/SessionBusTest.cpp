#include "Platform/Bus/SessionBus.h"

#include <QFile>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <QTest>
#include <sys/socket.h>
#include <sys/un.h>

#include <algorithm>
#include <unistd.h>

using namespace quorvel;
using namespace Qt::StringLiterals;

namespace {

QProcessEnvironment environment(const QString &address, const QString &runtimeDirectory)
{
    QProcessEnvironment environment;
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, address);
    environment.insert(u"XDG_RUNTIME_DIR"_s, runtimeDirectory);
    return environment;
}

bool makeSocket(const QString &path)
{
    sockaddr_un address = {.sun_family = AF_UNIX, .sun_path = {}};
    const QByteArray name = QFile::encodeName(path);
    if (size_t(name.size()) >= sizeof address.sun_path)
        return false;
    std::copy(name.begin(), name.end(), address.sun_path);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    const int bound = ::bind(socket, reinterpret_cast<sockaddr *>(&address), sizeof address);
    ::close(socket);
    return bound == 0;
}

} // namespace

class SessionBusTest final : public QObject
{
    Q_OBJECT

private slots:
    void isProvidedByAnAddressThatStartsNothing_data()
    {
        QTest::addColumn<QString>("address");
        QTest::addColumn<bool>("isProvided");
        QTest::newRow("a socket") << u"unix:path=/run/user/1000/bus"_s << true;
        QTest::newRow("one of two") << u"tcp:host=a;unix:abstract=b"_s << true;
        QTest::newRow("a launch") << u"autolaunch:"_s << false;
        QTest::newRow("a launch for the user") << u"autolaunch:scope=*user"_s << false;
        QTest::newRow("a launch at last") << u"unix:path=/a;autolaunch:scope=*user"_s << false;
        QTest::newRow("nothing") << QString() << false;
    }

    void isProvidedByAnAddressThatStartsNothing()
    {
        QFETCH(const QString, address);
        QTEST(SessionBus::isProvided(environment(address, QString())), "isProvided");
    }

    void isProvidedByTheUsersSocket()
    {
        const QTemporaryDir runtimeDirectory;
        const auto session = environment(QString(), runtimeDirectory.path());
        QVERIFY(!SessionBus::isProvided(session));
        QVERIFY(makeSocket(runtimeDirectory.filePath(u"bus"_s)));
        QVERIFY(SessionBus::isProvided(session));
    }

    void isNotProvidedByAPlainFile()
    {
        const QTemporaryDir runtimeDirectory;
        QVERIFY(QFile(runtimeDirectory.filePath(u"bus"_s)).open(QIODevice::WriteOnly));
        QVERIFY(!SessionBus::isProvided(environment(QString(), runtimeDirectory.path())));
    }

    void connectionLaunchesNoBus()
    {
        const QTemporaryDir runtimeDirectory;
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtimeDirectory.path()));
        // With a display, the bus library would launch a bus now.
        qputenv("DISPLAY", ":0");
        QVERIFY(!SessionBus::connection().isConnected());
        // Code that asks without SessionBus cannot launch one either.
        QVERIFY(!QDBusConnection::sessionBus().isConnected());
        QVERIFY(
            !QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"other"_s).isConnected());
        QCOMPARE(qgetenv("DBUS_SESSION_BUS_ADDRESS"), "disabled:");
    }
};

QTEST_GUILESS_MAIN(SessionBusTest)
#include "SessionBusTest.moc"
