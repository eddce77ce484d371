#include "Platform/Wifi/NetworkManagerWifiClient.h"
#include "Tests/Platform/Wifi/NetworkManager/NetworkManagerMock.h"
#include "Tests/Platform/Wifi/NetworkManager/WifiOutcomes.h"

#include <QDBusConnection>
#include <QTest>
#include <QVariant>

#include <chrono>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

Q_DECLARE_METATYPE(quorvel::WifiError::Code)

namespace quorvel::tests {

namespace {

using Code = WifiError::Code;
using Password = std::optional<QString>;

const QString wirelessGroup = u"802-11-wireless"_s;
const QString securityGroup = u"802-11-wireless-security"_s;

NetworkManagerGroups profileOf(const QByteArray &ssid, const QString &password,
                               qulonglong timestamp = 100)
{
    return {{u"connection"_s,
             {{u"type"_s, wirelessGroup}, {u"id"_s, u"x"_s}, {u"timestamp"_s, timestamp}}},
            {wirelessGroup, {{u"ssid"_s, ssid}}},
            {securityGroup, {{u"key-mgmt"_s, u"wpa-psk"_s}, {u"psk"_s, password}}}};
}

} // namespace

class NetworkManagerSecretTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_mock.start(); }
    void init()
    {
        m_mock.call(u"Clear"_s);
        limitRepliesTo(1min);
    }
    void cleanup() { m_client.reset(); }

    void aStoredPasswordIsFoundByTheNameOfItsNetwork_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("ssid");
        QTest::newRow("plain") << QByteArray("Cafe 5G") << u"Cafe 5G"_s;
        QTest::newRow("Latin-1") << QByteArray("Caf\xe9") << u"Café"_s;
        QTest::newRow("Vietnamese") << QByteArray("Cà Phê") << u"Cà Phê"_s;
        QTest::newRow("like an option") << QByteArray("--active") << u"--active"_s;
        QTest::newRow("lines and quotes") << QByteArray("\"a'\n") << u"\"a'\n"_s;
        QTest::newRow("a zero inside") << QByteArray("a\0b", 3) << QString(u"a\0b"_s);
    }

    void aStoredPasswordIsFoundByTheNameOfItsNetwork()
    {
        QFETCH(const QByteArray, bytes);
        QFETCH(const QString, ssid);
        m_mock.addProfile(profileOf("other", u"wrong"_s, 900));
        m_mock.addProfile(profileOf(bytes, u" mật khẩu ☕\\: "_s));
        PasswordCall call = passwordOf(*m_client, ssid);
        QVERIFY(!call.hasEnded());
        QCOMPARE(call.take(), Password(u" mật khẩu ☕\\: "_s));
    }

    void aNetworkThatIsNotKnownHasNone_data()
    {
        QTest::addColumn<QString>("ssid");
        QTest::newRow("another case") << u"cafe"_s;
        QTest::newRow("a blank behind") << u"Cafe "_s;
        QTest::newRow("the title of a profile") << u"x"_s;
        QTest::newRow("empty") << QString();
    }

    void aNetworkThatIsNotKnownHasNone()
    {
        QFETCH(const QString, ssid);
        m_mock.addProfile(profileOf("Cafe", u"12345678"_s));
        m_mock.addProfile(profileOf(QByteArray(32, '\0'), u"12345678"_s));
        QCOMPARE(passwordOf(*m_client, ssid).take(), std::nullopt);
    }

    void aMachineWithoutProfilesHasNone()
    {
        QCOMPARE(passwordOf(*m_client, u"Cafe"_s).take(), std::nullopt);
    }

    void ofSeveralProfilesTheOneLastUsedCounts()
    {
        m_mock.addProfile(profileOf("Cafe", u"first"_s, 100));
        m_mock.addProfile(profileOf("Cafe", u"newest"_s, 300));
        m_mock.addProfile(profileOf("Cafe", u"middle"_s, 200));
        QCOMPARE(passwordOf(*m_client, u"Cafe"_s).take(), Password(u"newest"_s));
    }

    void aProfileNeverUsedComesLast()
    {
        auto never = profileOf("Cafe", u"never used"_s);
        never[u"connection"_s].remove(u"timestamp"_s);
        m_mock.addProfile(never);
        m_mock.addProfile(profileOf("Cafe", u"used"_s, 1));
        QCOMPARE(passwordOf(*m_client, u"Cafe"_s).take(), Password(u"used"_s));
    }

    void aProfileWithoutASharedPasswordHasNone_data()
    {
        QTest::addColumn<QVariantMap>("security");
        QTest::newRow("open") << QVariantMap();
        QTest::newRow("WEP") << QVariantMap{{u"key-mgmt"_s, u"none"_s},
                                            {u"wep-key0"_s, u"12345"_s}};
        QTest::newRow("enterprise") << QVariantMap{{u"key-mgmt"_s, u"wpa-eap"_s}};
        QTest::newRow("not stored") << QVariantMap{{u"key-mgmt"_s, u"wpa-psk"_s}};
    }

    void aProfileWithoutASharedPasswordHasNone()
    {
        QFETCH(const QVariantMap, security);
        auto profile = profileOf("Cafe", QString());
        profile[securityGroup] = security;
        if (security.isEmpty())
            profile.remove(securityGroup);
        m_mock.addProfile(profile);
        QCOMPARE(passwordOf(*m_client, u"Cafe"_s).take(), std::nullopt);
    }

    void aPasswordOfThirdGenerationNetworksIsFound()
    {
        auto profile = profileOf("Cafe", u"12345678"_s);
        profile[securityGroup].insert(u"key-mgmt"_s, u"sae"_s);
        m_mock.addProfile(profile);
        QCOMPARE(passwordOf(*m_client, u"Cafe"_s).take(), Password(u"12345678"_s));
    }

    void anEmptyPasswordIsGivenAsItIs()
    {
        m_mock.addProfile(profileOf("Cafe", QString()));
        QCOMPARE(passwordOf(*m_client, u"Cafe"_s).take(), Password(u""_s));
    }

    void whatIsNoTextIsNoPassword()
    {
        m_mock.addProfile(profileOf("Cafe", u"12345678"_s));
        m_mock.script(u"secrets"_s, u"bytes"_s);
        QCOMPARE(passwordOf(*m_client, u"Cafe"_s).take(), std::nullopt);
    }

    void aSecretThatNobodyStoresIsNone()
    {
        m_mock.addProfile(profileOf("Cafe", u"12345678"_s));
        m_mock.script(u"secrets"_s, u"none"_s);
        QCOMPARE(passwordOf(*m_client, u"Cafe"_s).take(), std::nullopt);
    }

    void aRefusalIsAFailure_data()
    {
        QTest::addColumn<QString>("refusal");
        QTest::addColumn<QString>("sentence");
        QTest::newRow("denied") << u"denied"_s << u"The system does not allow this use of WiFi"_s;
        QTest::newRow("cancelled")
            << u"cancelled"_s << u"WiFi failed: User canceled the secrets request"_s;
    }

    void aRefusalIsAFailure()
    {
        QFETCH(const QString, refusal);
        QFETCH(const QString, sentence);
        m_mock.addProfile(profileOf("Cafe", u"12345678"_s));
        m_mock.script(u"secrets"_s, refusal);
        const auto error = passwordOf(*m_client, u"Cafe"_s).error();
        QVERIFY(error.has_value());
        QCOMPARE(error->errorDescription(), sentence);
    }

    void theUserMayTakeLongerThanAnyOtherCall()
    {
        m_mock.addProfile(profileOf("Cafe", u"12345678"_s));
        limitRepliesTo(1s);
        m_mock.script(u"secrets-ms"_s, 2'000);
        QCOMPARE(passwordOf(*m_client, u"Cafe"_s).take(), Password(u"12345678"_s));
    }

    void aServiceThatEndsWhileTheUserThinksEndsTheCall()
    {
        m_mock.addProfile(profileOf("Cafe", u"12345678"_s));
        m_mock.script(u"secrets-ms"_s, -1);
        PasswordCall call = passwordOf(*m_client, u"Cafe"_s);
        QVERIFY(passwordOf(*m_client, u"other"_s).take() == std::nullopt);
        m_mock.stop();
        QVERIFY(call.error() == WifiError(Code::ServiceGone));
        m_mock.start();
    }

    void aServiceThatHangsEndsInATimeOut()
    {
        limitRepliesTo(1s);
        QCOMPARE(passwordOf(*m_client, u"Cafe"_s).take(), std::nullopt);
        m_mock.freeze();
        const auto error = passwordOf(*m_client, u"Cafe"_s).error();
        m_mock.thaw();
        QVERIFY(error == WifiError(Code::TimedOut));
    }

    void withoutTheServiceTheCallFails()
    {
        m_mock.stop();
        QVERIFY(passwordOf(*m_client, u"Cafe"_s).error() == WifiError(Code::ServiceGone));
        m_mock.start();
    }

    void callsRunBesideEachOther()
    {
        m_mock.addProfile(profileOf("Cafe", u"first"_s));
        m_mock.addProfile(profileOf("Bar", u"second"_s));
        PasswordCall cafe = passwordOf(*m_client, u"Cafe"_s);
        PasswordCall bar = passwordOf(*m_client, u"Bar"_s);
        QCOMPARE(bar.take(), Password(u"second"_s));
        QCOMPARE(cafe.take(), Password(u"first"_s));
    }

private:
    void limitRepliesTo(std::chrono::milliseconds limit)
    {
        m_client = std::make_unique<NetworkManagerWifiClient>(QDBusConnection::sessionBus(),
                                                              WifiLimits{.reply = limit});
    }

    NetworkManagerMock m_mock;
    std::unique_ptr<NetworkManagerWifiClient> m_client;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::NetworkManagerSecretTest)
#include "NetworkManagerSecretTest.moc"
