#include "Platform/Wifi/NetworkManagerWifiClient.h"
#include "Tests/Contract/WifiClient/WifiClientContract.h"
#include "Tests/Platform/Wifi/NetworkManager/NetworkManagerMock.h"
#include "Tests/Platform/Wifi/NetworkManager/WifiOutcomes.h"
#include "Tests/Support/Patience.h"

#include <QDBusConnection>
#include <QTest>

#include <cmath>
#include <memory>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

namespace {

/// The percentage that NetworkManager makes of a scanned strength.
uchar percentOf(qint64 rssiDBm)
{
    return uchar(std::lround(double(rssiDBm + 100) / 0.6));
}

NetworkManagerGroups profileOf(const QByteArray &ssid, const QString &password)
{
    const QString type = u"802-11-wireless"_s;
    return {{u"connection"_s, {{u"type"_s, type}, {u"id"_s, u"mine"_s}}},
            {type, {{u"ssid"_s, ssid}}},
            {type + u"-security"_s, {{u"key-mgmt"_s, u"wpa-psk"_s}, {u"psk"_s, password}}}};
}

} // namespace

/// Uses the district's network service.
class NetworkManagerWifiClientContractTest final : public WifiClientContract
{
    Q_OBJECT

    std::unique_ptr<WifiClient> makeOn(const Machine &machine) override
    {
        m_mock.call(u"Clear"_s);
        if (machine.hasRadio)
            furnish(machine);
        auto client = std::make_unique<NetworkManagerWifiClient>(QDBusConnection::sessionBus());
        if (!comes([&] { return client->hasInterface() == machine.hasRadio; }))
            qFatal("the client does not know the machine");
        return client;
    }

    void furnish(const Machine &machine)
    {
        const QString radio = m_mock.addRadio();
        QStringList points;
        for (const ScannedNetwork &network : machine.heard)
            points.append(m_mock.addNetwork(radio,
                                            network.name ? network.name->bytes : QByteArray(),
                                            percentOf(network.rssiDBm)));
        if (machine.joined)
            m_mock.call(u"JoinNetwork"_s, {radio, points[*machine.joined]});
        if (machine.stored)
            m_mock.addProfile(profileOf(machine.heard.first().name->bytes, *machine.stored));
        if (machine.behaviour == Behaviour::RefusesScans)
            m_mock.script(u"scan"_s, u"denied"_s);
        if (machine.behaviour == Behaviour::RefusesPasswords)
            m_mock.script(u"join"_s, u"wrong-password"_s);
        if (machine.behaviour == Behaviour::NeverListens)
            m_mock.script(u"scan-ms"_s, -1);
    }

    NetworkManagerMock m_mock;

private slots:
    void initTestCase() { m_mock.start(); }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::NetworkManagerWifiClientContractTest)
#include "NetworkManagerWifiClientContractTest.moc"
