#include "Platform/Bus/BusCall.h"
#include "Platform/Bus/SystemBus.h"
#include "Platform/SystemEvents/DBusSystemEvents.h"
#include "Platform/Wifi/NetworkManager/NetworkManagerBus.h"
#include "Tests/Support/Patience.h"

#include <QDBusMetaType>
#include <QDBusVariant>
#include <QTest>

#include <chrono>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace Names = NetworkManagerNames;

/// What the real daemon announces of a cable that is plugged in, and of a switch for the radio.
class RealSystemEventsTest final : public QObject
{
    Q_OBJECT

private slots:
    static void initTestCase() { qDBusRegisterMetaType<QList<QVariantMap>>(); }
    void init()
    {
        m_told.clear();
        m_events = std::make_unique<DBusSystemEvents>(m_bus.connection());
        connect(m_events.get(), &SystemEvents::cameBack, this,
                [this](Returning what) { m_told.append(what); });
        m_events->follow();
    }
    void cleanup() { m_events.reset(); }

    void aConnectionIsTheNetworksReturn()
    {
        const auto reply = ask({.path = Names::managerPath,
                                .interface = Names::manager,
                                .member = u"AddAndActivateConnection"_s,
                                .arguments = {QVariant::fromValue(cableProfile()),
                                              QVariant::fromValue(QDBusObjectPath(cable())),
                                              QVariant::fromValue(QDBusObjectPath(u"/"_s))}});
        QTRY_VERIFY(m_told.contains(Returning::Network));
        m_told.clear();
        ask({.path = Names::managerPath,
             .interface = Names::manager,
             .member = u"DeactivateConnection"_s,
             .arguments = {reply.value(1)}});
        QTRY_VERIFY(state() < 50);
        QCOMPARE(m_told, QList<Returning>());
    }

    void theSwitchOfTheRadioIsItsReturn()
    {
        setWireless(false);
        QCOMPARE(m_told, QList<Returning>());
        setWireless(true);
        QTRY_COMPARE(m_told, QList<Returning>{Returning::Radio});
    }

private:
    /// With a way out, as far as the daemon can tell.
    static NetworkManagerGroups cableProfile()
    {
        const QVariantMap address{{u"address"_s, u"192.0.2.2"_s}, {u"prefix"_s, 24U}};
        NetworkManagerGroups profile{
            {u"connection"_s, {{u"id"_s, u"cable"_s}, {u"type"_s, u"802-3-ethernet"_s}}},
            {u"ipv6"_s, {{u"method"_s, u"disabled"_s}}}};
        profile[u"ipv4"_s] = {
            {u"method"_s, u"manual"_s},
            {u"gateway"_s, u"192.0.2.1"_s},
            {u"address-data"_s, QVariant::fromValue(QList<QVariantMap>{address})}};
        return profile;
    }

    QString cable()
    {
        return ask({.path = Names::managerPath,
                    .interface = Names::manager,
                    .member = u"GetDeviceByIpIface"_s,
                    .arguments = {u"cable0"_s}})
            .value(0)
            .value<QDBusObjectPath>()
            .path();
    }

    uint state()
    {
        return ask({.path = Names::managerPath, .interface = Names::manager, .member = u"state"_s})
            .value(0)
            .toUInt();
    }

    void setWireless(bool isOn)
    {
        ask({.path = Names::managerPath,
             .interface = Names::properties,
             .member = u"Set"_s,
             .arguments = {Names::manager, u"WirelessEnabled"_s,
                           QVariant::fromValue(QDBusVariant(isOn))}});
    }

    /// What the daemon answers; signals that it sent before have been heard then.
    QVariantList ask(const NetworkManagerCall &call)
    {
        std::optional<QDBusMessage> answer;
        m_bus.call(this, call, std::chrono::seconds(10),
                   [&answer](const QDBusMessage &reply) { answer = reply; });
        if (!comes([&answer] { return answer.has_value(); }))
            qFatal("the daemon does not answer");
        if (BusCall::isError(*answer))
            qFatal("%s", qUtf8Printable(answer->errorMessage()));
        return answer->arguments();
    }

    NetworkManagerBus m_bus{SystemBus::connection()};
    std::unique_ptr<DBusSystemEvents> m_events;
    QList<Returning> m_told;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::RealSystemEventsTest)
#include "RealSystemEventsTest.moc"
