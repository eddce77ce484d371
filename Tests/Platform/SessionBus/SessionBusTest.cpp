#include "Platform/SessionBus/SessionBus.h"

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

bool isProvided(const QString &address, const QString &runtimeFolder)
{
    QProcessEnvironment environment;
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, address);
    environment.insert(u"XDG_RUNTIME_DIR"_s, runtimeFolder);
    return SessionBus::isProvided(environment);
}

} // namespace

class SessionBusTest final : public QObject
{
    Q_OBJECT

private slots:
    void anAddressOfTheSessionNamesABus()
    {
        QVERIFY(isProvided(u"unix:path=/run/user/1000/bus"_s, QString()));
        QVERIFY(isProvided(u"tcp:host=a;unix:abstract=b"_s, QString()));
    }

    void anAddressThatStartsABusNamesNone()
    {
        QVERIFY(!isProvided(u"autolaunch:"_s, QString()));
        QVERIFY(!isProvided(u"autolaunch:scope=*user"_s, QString()));
        QVERIFY(!isProvided(u"unix:path=/a;autolaunch:"_s, QString()));
    }

    void anEmptyEnvironmentHasNoBus()
    {
        QVERIFY(!SessionBus::isProvided(QProcessEnvironment()));
        QVERIFY(!isProvided(QString(), QString()));
    }

    void theUsersSocketIsABus()
    {
        const QTemporaryDir folder;
        QVERIFY(!isProvided(QString(), folder.path()));
        const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        sockaddr_un address = {.sun_family = AF_UNIX, .sun_path = {}};
        const QByteArray path = QFile::encodeName(folder.filePath(u"bus"_s));
        QVERIFY(size_t(path.size()) < sizeof address.sun_path);
        std::copy(path.begin(), path.end(), address.sun_path);
        const int bound =
            bind(listener, reinterpret_cast<const sockaddr *>(&address), sizeof address);
        close(listener);
        QCOMPARE(bound, 0);
        QVERIFY(isProvided(QString(), folder.path()));
    }

    void aPlainFileInTheSocketsPlaceIsNoBus()
    {
        const QTemporaryDir folder;
        QVERIFY(QFile(folder.filePath(u"bus"_s)).open(QIODevice::WriteOnly));
        QVERIFY(!isProvided(QString(), folder.path()));
    }
};

QTEST_GUILESS_MAIN(SessionBusTest)
#include "SessionBusTest.moc"
