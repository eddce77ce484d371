#include "Platform/Bus/SystemBus.h"

#include <QDBusError>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

class SystemBusTest final : public QObject
{
    Q_OBJECT

private slots:
    void theAddressOfTheEnvironmentIsTheOnlyOneTried()
    {
        const QTemporaryDir folder;
        const QByteArray nowhere = "unix:path=" + folder.filePath(u"bus"_s).toUtf8();
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", nowhere);
        const auto bus = SystemBus::connection();
        QVERIFY(!bus.isConnected());
        QVERIFY2(bus.lastError().message().contains(folder.path()),
                 qPrintable(bus.lastError().message()));
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::SystemBusTest)
#include "SystemBusTest.moc"
