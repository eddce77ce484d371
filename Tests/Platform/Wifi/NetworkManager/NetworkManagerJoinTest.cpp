#include "Platform/Wifi/NetworkManagerWifiClient.h"
#include "Tests/Platform/Wifi/NetworkManager/NetworkManagerMock.h"
#include "Tests/Platform/Wifi/NetworkManager/WifiOutcomes.h"
#include "Tests/Support/Patience.h"

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QTest>
#include <QVariant>

#include <chrono>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

Q_DECLARE_METATYPE(quorvel::WifiError::Code)
Q_DECLARE_METATYPE(quorvel::tests::NetworkManagerMock::Security)

namespace quorvel::tests {

namespace {

namespace Names = NetworkManagerNames;
using Code = WifiError::Code;
using Security = NetworkManagerMock::Security;

const QString password = u"pass word 12"_s;
const QString wirelessGroup = u"802-11-wireless"_s;
const QString securityGroup = u"802-11-wireless-security"_s;

QString passwordOf(const NetworkManagerGroups &profile)
{
    return profile.value(securityGroup).value(u"psk"_s).toString();
}

} // namespace

class NetworkManagerJoinTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_mock.start(); }
    void init()
    {
        m_mock.call(u"Clear"_s);
        m_radio = m_mock.addRadio();
        makeWith(
            {.reply = 1min, .retry = 50ms, .permission = 1min, .join = 1min, .lastWord = 100ms});
    }
    void cleanup() { m_client.reset(); }

    void aJoinedNetworkIsTheCurrentOne()
    {
        m_mock.addNetwork(m_radio, "Cafe 5G");
        JoinCall call = joinOf(*m_client, "Cafe 5G", password);
        QVERIFY(!call.hasEnded());
        QVERIFY(!call.error().has_value());
        QCOMPARE(m_client->ssid(), u"Cafe 5G"_s);
    }

    void everyKindOfNetworkIsJoinedInItsWay_data()
    {
        QTest::addColumn<Security>("security");
        QTest::addColumn<QString>("keyManagement");
        QTest::addColumn<QString>("givenPassword");
        QTest::newRow("WPA2") << Security{1, 0, 0x100} << u"wpa-psk"_s << password;
        QTest::newRow("WPA") << Security{1, 0x100, 0} << u"wpa-psk"_s << password;
        QTest::newRow("WPA2 and WPA3") << Security{1, 0, 0x500} << u"wpa-psk"_s << password;
        QTest::newRow("WPA3") << Security{1, 0, 0x400} << u"sae"_s << password;
        QTest::newRow("encrypted, open") << Security{1, 0, 0x800} << u"owe"_s << QString();
        QTest::newRow("open") << Security{0, 0, 0} << QString() << QString();
    }

    void everyKindOfNetworkIsJoinedInItsWay()
    {
        QFETCH(const Security, security);
        QFETCH(const QString, keyManagement);
        QFETCH(const QString, givenPassword);
        m_mock.addNetwork(m_radio, "Cafe", 80, security);
        QVERIFY(!joinOf(*m_client, "Cafe", password).error());
        const auto profile = m_mock.profiles().value(0);
        QCOMPARE(profile.value(securityGroup).value(u"key-mgmt"_s).toString(), keyManagement);
        QCOMPARE(passwordOf(profile), givenPassword);
        QCOMPARE(profile.contains(securityGroup), !keyManagement.isEmpty());
    }

    void aNetworkThatAPasswordCannotJoinIsRefused_data()
    {
        QTest::addColumn<Security>("security");
        QTest::addColumn<QString>("sentence");
        QTest::newRow("enterprise")
            << Security{1, 0, 0x200}
            << u"The network needs a user name, which Quorvel cannot give"_s;
        QTest::newRow("WEP") << Security{1, 0, 0}
                             << u"The network is protected in a way that is no longer supported"_s;
    }

    void aNetworkThatAPasswordCannotJoinIsRefused()
    {
        QFETCH(const Security, security);
        QFETCH(const QString, sentence);
        m_mock.addNetwork(m_radio, "Cafe", 80, security);
        QCOMPARE(sentenceOf("Cafe"), sentence);
        QCOMPARE(m_mock.profileCount(), 0U);
    }

    void theBytesOfTheNameAreSentAsTheyAre_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("Latin-1") << QByteArray("Caf\xe9");
        QTest::newRow("not UTF-8") << QByteArray("\xff\xfe\xc0\x80");
        QTest::newRow("lines and markup") << QByteArray("<b>\r\n</b>");
        QTest::newRow("a zero inside") << QByteArray("a\0b", 3);
        QTest::newRow("Vietnamese") << QByteArray("Cà Phê");
    }

    void theBytesOfTheNameAreSentAsTheyAre()
    {
        QFETCH(const QByteArray, bytes);
        m_mock.addNetwork(m_radio, bytes);
        QVERIFY(!joinOf(*m_client, bytes, password).error());
        const auto profile = m_mock.profiles().value(0);
        QCOMPARE(profile.value(wirelessGroup).value(u"ssid"_s).toByteArray(), bytes);
    }

    void namesOfOneTextAreToldApart()
    {
        m_mock.addNetwork(m_radio, "Café", 90);
        const QString latin1 = m_mock.addNetwork(m_radio, "Caf\xe9", 50);
        QVERIFY(!joinOf(*m_client, "Caf\xe9", password).error());
        QCOMPARE(accessPointInUse(), latin1);
    }

    void theStrongestAccessPointIsTaken()
    {
        m_mock.addNetwork(m_radio, "Cafe", 60);
        const QString strongest = m_mock.addNetwork(m_radio, "Cafe", 90);
        m_mock.addNetwork(m_radio, "Cafe", 80);
        m_mock.addNetwork(m_radio, "Bar", 100);
        QVERIFY(!joinOf(*m_client, "Cafe", password).error());
        QCOMPARE(accessPointInUse(), strongest);
    }

    void everyFailureHasItsSentenceAndLeavesNothingBehind_data()
    {
        QTest::addColumn<QString>("outcome");
        QTest::addColumn<QString>("sentence");
        const QString wrong = u"The password of the network is wrong"_s;
        QTest::newRow("wrong, the desktop asks") << u"agent-prompt"_s << wrong;
        QTest::newRow("wrong, nobody asks") << u"wrong-password"_s << wrong;
        QTest::newRow("a password of no form") << u"bad-password"_s << wrong;
        QTest::newRow("no address")
            << u"no-address"_s << u"The network gave this computer no address"_s;
        QTest::newRow("gone") << u"gone"_s << u"The network is no longer nearby"_s;
        QTest::newRow("gone before we listened")
            << u"over-at-once"_s << u"The connection was ended before it was made"_s;
        QTest::newRow("no association")
            << u"association-timeout"_s << u"WiFi took too long to answer"_s;
        QTest::newRow("taken down by somebody")
            << u"taken-down"_s << u"The connection was ended before it was made"_s;
        QTest::newRow("not permitted")
            << u"denied"_s << u"The system does not allow this use of WiFi"_s;
        QTest::newRow("odd") << u"odd"_s
                             << u"WiFi failed: The radio's attempt ended for reason 36"_s;
    }

    void everyFailureHasItsSentenceAndLeavesNothingBehind()
    {
        QFETCH(const QString, outcome);
        QFETCH(const QString, sentence);
        m_mock.addNetwork(m_radio, "Cafe");
        m_mock.script(u"join"_s, outcome);
        QCOMPARE(sentenceOf("Cafe"), sentence);
        QTRY_COMPARE(m_mock.profileCount(), 0U);
        QCOMPARE(m_client->ssid(), std::nullopt);
    }

    void aConnectionThatSpeaksBeforeItsRadioIsUnderstood_data()
    {
        QTest::addColumn<QString>("outcome");
        QTest::addColumn<Code>("code");
        QTest::newRow("wrong password") << u"wrong-password"_s << Code::WrongPassword;
        QTest::newRow("no address") << u"no-address"_s << Code::NoAddress;
        QTest::newRow("no association") << u"association-timeout"_s << Code::TimedOut;
        QTest::newRow("odd") << u"odd"_s << Code::Interrupted;
    }

    void aConnectionThatSpeaksBeforeItsRadioIsUnderstood()
    {
        QFETCH(const QString, outcome);
        QFETCH(const Code, code);
        m_mock.addNetwork(m_radio, "Cafe");
        m_mock.script(u"join"_s, outcome);
        m_mock.script(u"last-word"_s, u"connection"_s);
        const auto error = joinOf(*m_client, "Cafe", password).error();
        QVERIFY(error.has_value());
        QCOMPARE(error->code(), code);
    }

    void aRefusedPasswordTakesTheConnectionDownAtOnce()
    {
        m_mock.addNetwork(m_radio, "Cafe");
        m_mock.script(u"join"_s, u"agent-prompt"_s);
        QVERIFY(joinOf(*m_client, "Cafe", password).error() == WifiError(Code::WrongPassword));
        // NetworkManager would wait as long as the desktop's dialog is open.
        QTRY_COMPARE(m_mock.property(m_radio, Names::device, u"State"_s).toUInt(), 30U);
    }

    void noSecretIsInTheTextOfAFailure()
    {
        m_mock.addNetwork(m_radio, "Cafe");
        m_mock.script(u"join"_s, u"quoting"_s);
        QCOMPARE(sentenceOf("Cafe"),
                 u"WiFi failed: org.freedesktop.NetworkManager.ConnectionActivationFailed"_s);
    }

    void aNetworkThatIsUpAtOnceIsJoined()
    {
        m_mock.addNetwork(m_radio, "Cafe");
        m_mock.script(u"join"_s, u"at-once"_s);
        QVERIFY(!joinOf(*m_client, "Cafe", password).error());
        QCOMPARE(m_mock.profiles().size(), 1);
    }

    void anotherNetworkIsLeftForTheNewOne()
    {
        const QString bar = m_mock.addNetwork(m_radio, "Bar");
        m_mock.addNetwork(m_radio, "Cafe");
        m_mock.call(u"JoinNetwork"_s, {m_radio, bar});
        QTRY_COMPARE(m_client->ssid(), u"Bar"_s);
        QVERIFY(!joinOf(*m_client, "Cafe", password).error());
        QCOMPARE(m_client->ssid(), u"Cafe"_s);
    }

    void anAttemptThatHangsTimesOutAndLeavesNothingBehind()
    {
        makeWith({.reply = 1min, .join = 200ms});
        m_mock.addNetwork(m_radio, "Cafe");
        m_mock.script(u"join"_s, u"hang"_s);
        QCOMPARE(sentenceOf("Cafe"), u"WiFi took too long to answer"_s);
        QTRY_COMPARE(m_mock.profileCount(), 0U);
    }

    void aPermissionIsWaitedFor()
    {
        makeWith({.reply = 1s, .permission = 1min, .join = 1min});
        m_mock.addNetwork(m_radio, "Cafe");
        m_mock.script(u"join-answer-ms"_s, 2'000);
        QVERIFY(!joinOf(*m_client, "Cafe", password).error());
    }

    void aPermissionThatNeverComesTimesOut()
    {
        makeWith({.reply = 1min, .permission = 200ms});
        m_mock.addNetwork(m_radio, "Cafe");
        m_mock.script(u"join-answer-ms"_s, -1);
        QCOMPARE(sentenceOf("Cafe"), u"WiFi took too long to answer"_s);
    }

    void aPermissionThatComesTooLateJoinsNothing()
    {
        makeWith({.reply = 1min, .permission = 100ms});
        m_mock.addNetwork(m_radio, "Cafe");
        m_mock.script(u"join-answer-ms"_s, 400);
        m_mock.script(u"join"_s, u"hang"_s);
        QCOMPARE(sentenceOf("Cafe"), u"WiFi took too long to answer"_s);
        QTRY_COMPARE(m_mock.callCount(u"DeactivateConnection"_s), 1);
        QCOMPARE(m_mock.profileCount(), 0U);
    }

    void withoutARadioNothingIsJoined()
    {
        m_mock.call(u"RemoveRadio"_s, {m_radio});
        QCOMPARE(sentenceOf("Cafe"), u"No WiFi interface available"_s);
    }

    void aRadioThatIsOffJoinsNothing()
    {
        m_mock.addNetwork(m_radio, "Cafe");
        m_mock.change(Names::managerPath, Names::manager, {{u"WirelessEnabled"_s, false}});
        QCOMPARE(sentenceOf("Cafe"), u"WiFi is turned off"_s);
    }

    void aNetworkThatIsNotHeardIsNotJoined()
    {
        m_mock.addNetwork(m_radio, "cafe");
        QCOMPARE(sentenceOf("Cafe"), u"The network is no longer nearby"_s);
    }

    void aRadioThatIsPulledOutEndsTheJoin()
    {
        m_mock.addNetwork(m_radio, "Cafe");
        m_mock.script(u"join"_s, u"hang"_s);
        JoinCall call = joinOf(*m_client, "Cafe", password);
        QTRY_COMPARE(m_mock.profileCount(), 1U);
        m_mock.call(u"RemoveRadio"_s, {m_radio});
        QVERIFY(call.error() == WifiError(Code::NoInterface));
    }

    void aServiceThatEndsEndsTheJoin_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QVariant>("what");
        QTest::newRow("before the permission") << u"join-answer-ms"_s << QVariant(-1);
        QTest::newRow("on the way") << u"join"_s << QVariant(u"hang"_s);
    }

    void aServiceThatEndsEndsTheJoin()
    {
        QFETCH(const QString, key);
        QFETCH(const QVariant, what);
        m_mock.addNetwork(m_radio, "Cafe");
        m_mock.script(key, what);
        JoinCall call = joinOf(*m_client, "Cafe", password);
        scanOf(*m_client).error();
        m_mock.stop();
        QVERIFY(call.error() == WifiError(Code::ServiceGone));
        m_mock.start();
    }

    void anOpenJoinIsTakenDownWithItsClient()
    {
        m_mock.addNetwork(m_radio, "Cafe");
        m_mock.script(u"join"_s, u"hang"_s);
        const JoinCall call = joinOf(*m_client, "Cafe", password);
        // Answers come in order, so this one follows the answer to the join.
        QVERIFY(!scanOf(*m_client).error());
        QCOMPARE(m_mock.profileCount(), 1U);
        m_client.reset();
        QTRY_COMPARE(m_mock.profileCount(), 0U);
        QVERIFY(!call.hasEnded());
    }

    void theNewerOfTwoJoinsWins()
    {
        m_mock.addNetwork(m_radio, "Cafe");
        m_mock.addNetwork(m_radio, "Bar");
        m_mock.script(u"step-ms"_s, 60);
        JoinCall first = joinOf(*m_client, "Cafe", password);
        QTRY_COMPARE(m_mock.profileCount(), 1U);
        QVERIFY(!joinOf(*m_client, "Bar", password).error());
        QVERIFY(first.error() == WifiError(Code::Interrupted));
        QCOMPARE(m_client->ssid(), u"Bar"_s);
    }

private:
    void makeWith(const WifiLimits &limits)
    {
        m_client =
            std::make_unique<NetworkManagerWifiClient>(QDBusConnection::sessionBus(), limits);
        QTRY_VERIFY(m_client->hasInterface());
    }

    QString sentenceOf(const QByteArray &ssid)
    {
        const auto error = joinOf(*m_client, ssid, password).error();
        return error ? error->errorDescription() : QString();
    }

    QString accessPointInUse() const
    {
        return m_mock.property(m_radio, Names::wireless, u"ActiveAccessPoint"_s)
            .value<QDBusObjectPath>()
            .path();
    }

    NetworkManagerMock m_mock;
    QString m_radio;
    std::unique_ptr<NetworkManagerWifiClient> m_client;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::NetworkManagerJoinTest)
#include "NetworkManagerJoinTest.moc"
