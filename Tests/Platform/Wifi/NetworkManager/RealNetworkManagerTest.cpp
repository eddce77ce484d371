#include "Platform/Bus/BusCall.h"
#include "Platform/Wifi/NetworkManager/NetworkManagerBus.h"
#include "Platform/Wifi/NetworkManager/Profiles/NetworkManagerKeeping.h"
#include "Platform/Wifi/NetworkManagerWifiClient.h"
#include "Tests/Platform/Wifi/NetworkManager/WifiOutcomes.h"
#include "Tests/Support/Patience.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDir>
#include <QTest>
#include <QVariant>

#include <chrono>
#include <optional>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quorvel::tests {

namespace {

namespace Names = NetworkManagerNames;
using Password = std::optional<QString>;

const QString wirelessGroup = u"802-11-wireless"_s;
const QString securityGroup = u"802-11-wireless-security"_s;
const QString profilesFolder = u"/etc/NetworkManager/system-connections"_s;

NetworkManagerGroups profileOf(const QByteArray &ssid, const QVariantMap &security)
{
    NetworkManagerGroups settings{
        {u"connection"_s,
         {{u"type"_s, wirelessGroup}, {u"id"_s, u"of another title"_s}, {u"autoconnect"_s, false}}},
        {wirelessGroup, {{u"ssid"_s, ssid}}}};
    if (!security.isEmpty())
        settings.insert(securityGroup, security);
    return settings;
}

QVariantMap sharedPassword(const QString &password)
{
    return {{u"key-mgmt"_s, u"wpa-psk"_s}, {u"psk"_s, password}};
}

} // namespace

/// What only the real daemon can show: what it stores, returns and forgets.
class RealNetworkManagerTest final : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        for (const QString &path : profiles())
            ask({.path = path, .interface = Names::profile, .member = u"Delete"_s});
        QVERIFY(profiles().isEmpty());
    }

    /// The daemon was started with these profiles, since a test cannot set the time of their last
    /// use.
    void ofSeveralProfilesTheOneLastUsedCounts()
    {
        QCOMPARE(profiles().size(), 4);
        QCOMPARE(storedPassword(u"Used often"_s), u"password of 300"_s);
    }

    void aCableIsNoInterface()
    {
        NetworkManagerWifiClient client(m_bus.connection());
        QVERIFY(scanOf(client).error() == WifiError(WifiError::Code::NoInterface));
        QVERIFY(!client.hasInterface());
    }

    void aStoredPasswordIsFoundByTheBytesOfTheName_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("ssid");
        QTest::addColumn<QString>("password");
        QTest::newRow("plain") << QByteArray("Cafe 5G") << u"Cafe 5G"_s << u"pass word\\:1"_s;
        QTest::newRow("Vietnamese") << QByteArray("Cà Phê") << u"Cà Phê"_s << u"mật khẩu"_s;
        QTest::newRow("Latin-1") << QByteArray("Caf\xe9") << u"Café"_s << u"12345678"_s;
        QTest::newRow("lines") << QByteArray("a\nb") << u"a\nb"_s << u"12345678"_s;
        QTest::newRow("like an option") << QByteArray("--active") << u"--active"_s << u"87654321"_s;
    }

    void aStoredPasswordIsFoundByTheBytesOfTheName()
    {
        QFETCH(const QByteArray, bytes);
        QFETCH(const QString, ssid);
        QFETCH(const QString, password);
        add(profileOf("other", sharedPassword(u"another one"_s)));
        add(profileOf(bytes, sharedPassword(password)));
        QCOMPARE(storedPassword(ssid), password);
        QCOMPARE(storedPassword(u"of another title"_s), std::nullopt);
    }

    void aProfileWithoutASharedPasswordHasNone_data()
    {
        QTest::addColumn<QVariantMap>("security");
        QTest::newRow("open") << QVariantMap();
        QTest::newRow("WEP") << QVariantMap{{u"key-mgmt"_s, u"none"_s},
                                            {u"wep-key0"_s, u"12345"_s}};
        QTest::newRow("kept by the desktop, where none is")
            << QVariantMap{{u"key-mgmt"_s, u"wpa-psk"_s}, {u"psk-flags"_s, 1U}};
        QTest::newRow("asked for each time")
            << QVariantMap{{u"key-mgmt"_s, u"wpa-psk"_s}, {u"psk-flags"_s, 2U}};
    }

    void aProfileWithoutASharedPasswordHasNone()
    {
        QFETCH(const QVariantMap, security);
        add(profileOf("Cafe", security));
        QCOMPARE(storedPassword(u"Cafe"_s), std::nullopt);
    }

    void anEnterpriseProfileHasNone()
    {
        auto profile = profileOf("Cafe", {{u"key-mgmt"_s, u"wpa-eap"_s}});
        profile[u"802-1x"_s] = {{u"eap"_s, QStringList{u"peap"_s}},
                                {u"identity"_s, u"me"_s},
                                {u"phase2-auth"_s, u"mschapv2"_s},
                                {u"password"_s, u"secret"_s}};
        add(profile);
        QCOMPARE(storedPassword(u"Cafe"_s), std::nullopt);
    }

    void aPasswordOfThirdGenerationNetworksIsFound()
    {
        add(profileOf("Cafe", {{u"key-mgmt"_s, u"sae"_s}, {u"psk"_s, u"short"_s}}));
        QCOMPARE(storedPassword(u"Cafe"_s), u"short"_s);
    }

    void aTemporaryProfileIsKeptOnTheDisk()
    {
        const QString path = addUnsaved(profileOf("Cafe", sharedPassword(u"12345678"_s)));
        QCOMPARE(filesKept(), 0);
        keep(path, profileOf("Cafe", sharedPassword(u"12345678"_s)));
        QCOMPARE(filesKept(), 1);
        QCOMPARE(storedPassword(u"Cafe"_s), u"12345678"_s);
    }

    void anEarlierProfileIsUpdatedAndLosesNothing()
    {
        auto mine = profileOf("Cafe", sharedPassword(u"the old one"_s));
        mine[u"connection"_s].insert(u"autoconnect-priority"_s, 7);
        mine[u"ipv4"_s] = {{u"method"_s, u"auto"_s}, {u"dns-search"_s, QStringList{u"a.b"_s}}};
        mine[wirelessGroup].insert(u"hidden"_s, true);
        const QString earlier = add(mine);
        const auto before = settingsOf(earlier);
        const QString path = addUnsaved(profileOf("Cafe", sharedPassword(u"the new one"_s)));
        keep(path, profileOf("Cafe", sharedPassword(u"the new one"_s)));
        QCOMPARE(filesKept(), 1);
        ask({.path = path, .interface = Names::profile, .member = u"Delete"_s});
        QCOMPARE(storedPassword(u"Cafe"_s), u"the new one"_s);
        const auto after = settingsOf(earlier);
        QCOMPARE(after.keys(), before.keys());
        for (const QString &group : before.keys())
            QCOMPARE(after.value(group).keys(), before.value(group).keys());
        QCOMPARE(after.value(u"connection"_s), before.value(u"connection"_s));
        QCOMPARE(after.value(wirelessGroup).value(u"hidden"_s), QVariant(true));
        QCOMPARE(after.value(u"ipv4"_s).value(u"dns-search"_s).toStringList(),
                 QStringList(u"a.b"_s));
    }

    void aVolatileProfileGetsATitleAndVanishesWithItsConnection()
    {
        const NetworkManagerGroups settings{
            {u"connection"_s,
             {{u"type"_s, u"802-3-ethernet"_s}, {u"permissions"_s, QStringList{u"user:root:"_s}}}},
            {u"ipv4"_s, {{u"method"_s, u"disabled"_s}}},
            {u"ipv6"_s, {{u"method"_s, u"disabled"_s}}}};
        const auto device = ask({.path = Names::managerPath,
                                 .interface = Names::manager,
                                 .member = u"GetDeviceByIpIface"_s,
                                 .arguments = {u"cable0"_s}});
        const auto reply = ask({.path = Names::managerPath,
                                .interface = Names::manager,
                                .member = u"AddAndActivateConnection2"_s,
                                .arguments = {QVariant::fromValue(settings), device.value(0),
                                              QVariant::fromValue(QDBusObjectPath(u"/"_s)),
                                              QVariantMap{{u"persist"_s, u"volatile"_s}}}});
        const QString profile = reply.value(0).value<QDBusObjectPath>().path();
        QVERIFY(!settingsOf(profile).value(u"connection"_s).value(u"id"_s).toString().isEmpty());
        ask({.path = Names::managerPath,
             .interface = Names::manager,
             .member = u"DeactivateConnection"_s,
             .arguments = {reply.value(1)}});
        QTRY_VERIFY(profiles().isEmpty());
        QCOMPARE(filesKept(), 0);
    }

private:
    QVariantList ask(const NetworkManagerCall &call) const
    {
        QObject context;
        std::optional<QDBusMessage> answer;
        m_bus.call(&context, call, 20s, [&answer](const QDBusMessage &reply) { answer = reply; });
        if (!comes([&answer] { return answer.has_value(); }))
            qFatal("no answer to %s", qUtf8Printable(call.member));
        if (BusCall::isError(*answer))
            qFatal("%s: %s", qUtf8Printable(call.member), qUtf8Printable(answer->errorMessage()));
        return answer->arguments();
    }

    QString add(const NetworkManagerGroups &settings) const
    {
        return added(u"AddConnection"_s, settings);
    }
    QString addUnsaved(const NetworkManagerGroups &settings) const
    {
        return added(u"AddConnectionUnsaved"_s, settings);
    }
    QString added(const QString &member, const NetworkManagerGroups &settings) const
    {
        return ask({.path = Names::settingsPath,
                    .interface = Names::settings,
                    .member = member,
                    .arguments = {QVariant::fromValue(settings)}})
            .value(0)
            .value<QDBusObjectPath>()
            .path();
    }

    QStringList profiles() const
    {
        const auto listed = ask({.path = Names::settingsPath,
                                 .interface = Names::settings,
                                 .member = u"ListConnections"_s});
        QStringList paths;
        for (const auto &path : qdbus_cast<QList<QDBusObjectPath>>(listed.value(0)))
            // The daemon has a profile of its own for the loopback interface.
            if (typeOf(path.path()) != u"loopback"_s)
                paths.append(path.path());
        return paths;
    }

    QString typeOf(const QString &path) const
    {
        return settingsOf(path).value(u"connection"_s).value(u"type"_s).toString();
    }

    NetworkManagerGroups settingsOf(const QString &path) const
    {
        return qdbus_cast<NetworkManagerGroups>(
            ask({.path = path, .interface = Names::profile, .member = u"GetSettings"_s}).value(0));
    }

    static qsizetype filesKept() { return QDir(profilesFolder).entryList(QDir::Files).size(); }

    Password storedPassword(const QString &ssid) const
    {
        NetworkManagerWifiClient client(m_bus.connection());
        return passwordOf(client, ssid).take();
    }

    void keep(const QString &path, const NetworkManagerGroups &settings)
    {
        bool isDone = false;
        new NetworkManagerKeeping(
            m_bus, {}, u"root"_s, {.temporaryProfile = path, .settings = settings},
            [&isDone] { isDone = true; }, this);
        QVERIFY(comes([&isDone] { return isDone; }));
    }

    NetworkManagerBus m_bus{QDBusConnection::systemBus()};
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::RealNetworkManagerTest)
#include "RealNetworkManagerTest.moc"
