#include "Platform/Wifi/NetworkManager/Profiles/NetworkManagerKeeping.h"

#include "Platform/Wifi/NetworkManagerWifiClient.h"
#include "Tests/Platform/Wifi/NetworkManager/NetworkManagerMock.h"
#include "Tests/Platform/Wifi/NetworkManager/WifiOutcomes.h"
#include "Tests/Support/Patience.h"

#include <QDBusConnection>
#include <QTest>
#include <QVariant>

#include <memory>
#include <pwd.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

const QString password = u"pass word 12"_s;
const QString wirelessGroup = u"802-11-wireless"_s;
const QString securityGroup = u"802-11-wireless-security"_s;

QString ownPermission()
{
    return u"user:"_s + QString::fromLocal8Bit(::getpwuid(::getuid())->pw_name) + u':';
}

/// An existing profile of the user for this network.
NetworkManagerGroups earlier(const QByteArray &ssid, qulonglong timestamp = 100)
{
    return {{u"connection"_s,
             {{u"type"_s, wirelessGroup}, {u"id"_s, u"mine"_s}, {u"timestamp"_s, timestamp}}},
            {wirelessGroup, {{u"ssid"_s, ssid}}},
            {securityGroup, {{u"key-mgmt"_s, u"wpa-psk"_s}, {u"psk"_s, u"the old one"_s}}}};
}

QString passwordOf(const NetworkManagerGroups &profile)
{
    return profile.value(securityGroup).value(u"psk"_s).toString();
}

QString idOf(const NetworkManagerGroups &profile)
{
    return profile.value(u"connection"_s).value(u"id"_s).toString();
}

} // namespace

/// What the system remembers of a joined network.
class NetworkManagerKeepingTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_mock.start(); }
    void init()
    {
        m_mock.call(u"Clear"_s);
        m_radio = m_mock.addRadio();
        m_client = std::make_unique<NetworkManagerWifiClient>(QDBusConnection::sessionBus());
        QTRY_VERIFY(m_client->hasInterface());
    }
    void cleanup() { m_client.reset(); }

    void aNewNetworkIsRememberedForItsUserAlone()
    {
        m_mock.addNetwork(m_radio, "Cafe");
        QVERIFY(!joinOf(*m_client, "Cafe", password).error());
        QCOMPARE(m_mock.profiles().size(), 1);
        const auto profile = m_mock.profiles().first();
        QCOMPARE(profile.value(wirelessGroup).value(u"ssid"_s).toByteArray(), QByteArray("Cafe"));
        QCOMPARE(profile.value(u"connection"_s).value(u"type"_s), wirelessGroup);
        QCOMPARE(profile.value(u"connection"_s).value(u"permissions"_s).toStringList(),
                 QStringList(ownPermission()));
        QCOMPARE(passwordOf(profile), password);
    }

    void anEarlierProfileIsUpdatedAndReused()
    {
        auto mine = earlier("Cafe");
        mine[u"connection"_s].insert(u"autoconnect-priority"_s, 7);
        mine[u"ipv4"_s] = {{u"method"_s, u"auto"_s}};
        m_mock.addProfile(mine);
        m_mock.addNetwork(m_radio, "Cafe");
        QVERIFY(!joinOf(*m_client, "Cafe", password).error());
        QCOMPARE(m_mock.profiles().size(), 1);
        const auto profile = m_mock.profiles().first();
        QCOMPARE(idOf(profile), u"mine"_s);
        QCOMPARE(passwordOf(profile), password);
        QCOMPARE(profile.value(u"connection"_s).value(u"autoconnect-priority"_s).toInt(), 7);
        QCOMPARE(profile.value(u"ipv4"_s).value(u"method"_s).toString(), u"auto"_s);
    }

    void ofSeveralProfilesTheOneLastUsedIsUpdated()
    {
        m_mock.addProfile(earlier("Cafe", 100));
        m_mock.addProfile(earlier("Cafe", 300));
        m_mock.addProfile(earlier("Cafe", 200));
        m_mock.addNetwork(m_radio, "Cafe");
        QVERIFY(!joinOf(*m_client, "Cafe", password).error());
        QStringList passwords;
        for (const auto &profile : m_mock.profiles())
            passwords.append(passwordOf(profile));
        QCOMPARE(passwords, (QStringList{u"the old one"_s, password, u"the old one"_s}));
    }

    void aProfileThatIsNotForThisNetworkIsLeftAlone_data()
    {
        QTest::addColumn<NetworkManagerGroups>("other");
        QTest::newRow("another name") << earlier("cafe");
        QTest::newRow("the same text in other bytes") << earlier("Caf\xe9");
        auto hotspot = earlier("Café");
        hotspot[wirelessGroup].insert(u"mode"_s, u"ap"_s);
        QTest::newRow("a hotspot of ours") << hotspot;
        auto enterprise = earlier("Café");
        enterprise[u"802-1x"_s] = {{u"identity"_s, u"me"_s}};
        QTest::newRow("enterprise") << enterprise;
    }

    void aProfileThatIsNotForThisNetworkIsLeftAlone()
    {
        QFETCH(const NetworkManagerGroups, other);
        m_mock.addProfile(other);
        m_mock.addNetwork(m_radio, "Café");
        QVERIFY(!joinOf(*m_client, "Café", password).error());
        QCOMPARE(m_mock.profiles().size(), 2);
        QCOMPARE(passwordOf(m_mock.profiles().first()), u"the old one"_s);
        QCOMPARE(passwordOf(m_mock.profiles().last()), password);
    }

    void aFailedJoinChangesNoProfile()
    {
        m_mock.addProfile(earlier("Cafe"));
        m_mock.addNetwork(m_radio, "Cafe");
        m_mock.script(u"join"_s, u"agent-prompt"_s);
        QVERIFY(joinOf(*m_client, "Cafe", password).error().has_value());
        QTRY_COMPARE(m_mock.profileCount(), 1U);
        QCOMPARE(passwordOf(m_mock.profiles().first()), u"the old one"_s);
    }

    void aProfileThatMayNotBeChangedUnaskedIsKeptBesideTheNewOne_data()
    {
        QTest::addColumn<bool>("isOwn");
        QTest::addColumn<QString>("permission");
        QTest::addColumn<QString>("answer");
        QTest::addColumn<int>("profiles");
        const QString own = u"modify-own"_s;
        const QString system = u"modify-system"_s;
        QTest::newRow("everybody's, an administrator would be asked")
            << false << system << u"auth"_s << 2;
        QTest::newRow("everybody's, forbidden") << false << system << u"no"_s << 2;
        QTest::newRow("everybody's, ours does not matter") << false << own << u"auth"_s << 1;
        QTest::newRow("our own, an administrator would be asked") << true << own << u"auth"_s << 2;
        QTest::newRow("our own, everybody's do not matter") << true << system << u"auth"_s << 1;
    }

    void aProfileThatMayNotBeChangedUnaskedIsKeptBesideTheNewOne()
    {
        QFETCH(const bool, isOwn);
        QFETCH(const QString, permission);
        QFETCH(const QString, answer);
        QFETCH(const int, profiles);
        auto mine = earlier("Cafe");
        if (isOwn)
            mine[u"connection"_s].insert(u"permissions"_s, QStringList(ownPermission()));
        m_mock.addProfile(mine);
        m_mock.addNetwork(m_radio, "Cafe");
        m_mock.script(permission, answer);
        QVERIFY(!joinOf(*m_client, "Cafe", password).error());
        QCOMPARE(m_mock.profiles().size(), profiles);
        QCOMPARE(passwordOf(m_mock.profiles().last()), password);
    }

    void aRefusedUpdateKeepsTheNewProfile()
    {
        m_mock.addProfile(earlier("Cafe"));
        m_mock.addNetwork(m_radio, "Cafe");
        m_mock.script(u"update"_s, u"denied"_s);
        QVERIFY(!joinOf(*m_client, "Cafe", password).error());
        QCOMPARE(m_mock.profiles().size(), 2);
    }

    void aNetworkThatCannotBeRememberedIsStillJoined()
    {
        m_mock.addNetwork(m_radio, "Cafe");
        m_mock.script(u"save"_s, u"denied"_s);
        QTest::ignoreMessage(QtWarningMsg,
                             "The joined network is not remembered: "
                             "org.freedesktop.NetworkManager.Settings.PermissionDenied");
        QVERIFY(!joinOf(*m_client, "Cafe", password).error());
        QCOMPARE(m_client->ssid(), u"Cafe"_s);
        QCOMPARE(m_mock.profiles().size(), 0);
    }

    void aProfileOfAnOldProtectionIsBroughtUpToDate()
    {
        auto old = earlier("Cafe");
        old[securityGroup] = {
            {u"key-mgmt"_s, u"none"_s}, {u"auth-alg"_s, u"shared"_s}, {u"wep-key0"_s, u"12345"_s}};
        m_mock.addProfile(old);
        m_mock.addNetwork(m_radio, "Cafe");
        QVERIFY(!joinOf(*m_client, "Cafe", password).error());
        QCOMPARE(m_mock.profiles().value(0).value(securityGroup),
                 (QVariantMap{{u"key-mgmt"_s, u"wpa-psk"_s}, {u"psk"_s, password}}));
    }

    void aNetworkThatIsOpenNowLosesItsOldPassword()
    {
        m_mock.addProfile(earlier("Cafe"));
        m_mock.addNetwork(m_radio, "Cafe", 80, {0, 0, 0});
        QVERIFY(!joinOf(*m_client, "Cafe", password).error());
        QCOMPARE(m_mock.profiles().size(), 1);
        QVERIFY(!m_mock.profiles().first().contains(securityGroup));
    }

private:
    NetworkManagerMock m_mock;
    QString m_radio;
    std::unique_ptr<NetworkManagerWifiClient> m_client;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::NetworkManagerKeepingTest)
#include "NetworkManagerKeepingTest.moc"
