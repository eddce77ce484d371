#include "Platform/SystemEvents/DBusSystemEvents.h"
#include "Tests/Contract/SystemEvents/SystemEventsContract.h"
#include "Tests/Platform/SystemEvents/LoginManagerMock.h"
#include "Tests/Platform/Wifi/NetworkManager/NetworkManagerMock.h"

#include <QCoreApplication>
#include <QTest>
#include <QVariant>

#include <memory>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

/// Uses the district's network service and a login manager.
class DBusSystemEventsContractTest final : public SystemEventsContract
{
    Q_OBJECT

    std::unique_ptr<SystemEvents> make() override
    {
        m_network.call(u"Clear"_s);
        return std::make_unique<DBusSystemEvents>(QDBusConnection::sessionBus());
    }

    void takeAway(Returning what) override { play(what, false); }
    void bringBack(Returning what) override { play(what, true); }

    void play(Returning what, bool isThere)
    {
        switch (what) {
        case Returning::Network:
            change({{u"State"_s, isThere ? 70U : 20U}});
            break;
        case Returning::Radio:
            change({{u"WirelessEnabled"_s, isThere}});
            break;
        case Returning::Machine:
            QVERIFY(m_login.prepareForSleep(!isThere));
            break;
        }
        QCoreApplication::processEvents();
    }

    void change(const QVariantMap &values)
    {
        m_network.change(NetworkManagerNames::managerPath, NetworkManagerNames::manager, values);
    }

    NetworkManagerMock m_network;
    LoginManagerMock m_login;

private slots:
    void initTestCase()
    {
        m_network.start();
        m_login.start();
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::DBusSystemEventsContractTest)
#include "DBusSystemEventsContractTest.moc"
