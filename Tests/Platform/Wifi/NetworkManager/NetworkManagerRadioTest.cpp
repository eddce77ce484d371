#include "Platform/Wifi/NetworkManagerWifiClient.h"
#include "Tests/Platform/Wifi/NetworkManager/NetworkManagerMock.h"
#include "Tests/Platform/Wifi/NetworkManager/WifiOutcomes.h"
#include "Tests/Support/Patience.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QTest>
#include <QVariant>

#include <chrono>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quorvel::tests {

namespace {

namespace Names = NetworkManagerNames;

constexpr uint getsAddress = 70;
constexpr uint activated = 100;

WifiLimits limits()
{
    return {.reply = 1min, .retry = 50ms};
}

QVariant pathTo(const QString &path)
{
    return QVariant::fromValue(QDBusObjectPath(path));
}

} // namespace

/// The facts that the client answers at once: the interface, its network and the strength.
class NetworkManagerRadioTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_mock.start(); }
    void init() { m_mock.call(u"Clear"_s); }

    void aMachineWithoutARadioHasNoInterface()
    {
        const auto client = make();
        waitUntilRead(*client);
        QVERIFY(!client->hasInterface());
        QCOMPARE(client->ssid(), std::nullopt);
        QCOMPARE(client->rssiValue(), qint64(0));
    }

    void aRadioThatIsJoinedToNothingHasNoNetwork()
    {
        m_mock.addNetwork(m_mock.addRadio(), "Cafe");
        const auto client = make();
        QTRY_VERIFY(client->hasInterface());
        QCOMPARE(client->ssid(), std::nullopt);
        QCOMPARE(client->rssiValue(), qint64(0));
    }

    void theCurrentNetworkIsKnownWithItsStrength()
    {
        const QString radio = m_mock.addRadio();
        join(radio, m_mock.addNetwork(radio, "Cafe 5G", 64));
        const auto client = make();
        QTRY_COMPARE(client->ssid(), u"Cafe 5G"_s);
        QCOMPARE(client->rssiValue(), qint64(-56));
    }

    /// Their signals can arrive before an earlier answer that describes the old state.
    void changesWhileTheAnswerIsOnItsWayAreNotLost()
    {
        const QString first = m_mock.addRadio(u"wlan0"_s);
        m_mock.script(u"objects-ms"_s, 60'000);
        const auto client = make();
        QTRY_COMPARE(m_mock.waitingCount(), 1U);
        const QString second = m_mock.addRadio(u"wlan1"_s);
        join(second, m_mock.addNetwork(second, "Cafe", 64));
        m_mock.call(u"RemoveRadio"_s, {first});
        QVERIFY(!client->hasInterface());
        m_mock.call(u"Hurry"_s);
        QTRY_COMPARE(client->ssid(), u"Cafe"_s);
        m_mock.call(u"RemoveRadio"_s, {second});
        QTRY_VERIFY(!client->hasInterface());
    }

    void changesAreFollowedLive()
    {
        const auto client = make();
        waitUntilRead(*client);
        const QString radio = m_mock.addRadio();
        QTRY_VERIFY(client->hasInterface());
        const QString cafe = m_mock.addNetwork(radio, "Cafe", 64);
        join(radio, cafe);
        QTRY_COMPARE(client->ssid(), u"Cafe"_s);
        m_mock.change(cafe, Names::accessPoint, {{u"Strength"_s, QVariant::fromValue(uchar(40))}});
        QTRY_COMPARE(client->rssiValue(), qint64(-80));
        join(radio, m_mock.addNetwork(radio, "Bar", 50));
        QTRY_COMPARE(client->ssid(), u"Bar"_s);
        m_mock.call(u"RemoveRadio"_s, {radio});
        QTRY_VERIFY(!client->hasInterface());
        QCOMPARE(client->ssid(), std::nullopt);
    }

    void whoWaitsIsToldOnceTheRadioIsKnown()
    {
        const QString radio = m_mock.addRadio();
        join(radio, m_mock.addNetwork(radio, "Cafe"));
        const auto client = make();
        QObject context;
        QStringList heard;
        const auto note = [&] { heard.append(client->ssid().value_or(u"none"_s)); };
        client->whenRead(&context, note);
        QVERIFY(heard.isEmpty());
        QTRY_COMPARE(heard, QStringList{u"Cafe"_s});
        client->whenRead(&context, note);
        QCOMPARE(heard.size(), 2);
    }

    void whoWaitsForAServiceThatIsNotThereIsToldToo()
    {
        NetworkManagerWifiClient client(QDBusConnection(u"nowhere"_s), limits());
        QObject context;
        int calls = 0;
        client.whenRead(&context, [&calls] { ++calls; });
        QTRY_COMPARE(calls, 1);
    }

    void aNetworkCountsOnceItHasLetTheMachineIn_data()
    {
        QTest::addColumn<uint>("state");
        QTest::addColumn<bool>("isJoined");
        QTest::newRow("configured") << 50U << false;
        QTest::newRow("asked for the password") << 60U << false;
        QTest::newRow("getting an address") << getsAddress << true;
        QTest::newRow("joined") << activated << true;
        QTest::newRow("leaving") << 110U << false;
    }

    void aNetworkCountsOnceItHasLetTheMachineIn()
    {
        QFETCH(const uint, state);
        QFETCH(const bool, isJoined);
        const QString radio = m_mock.addRadio();
        join(radio, m_mock.addNetwork(radio, "Cafe"));
        const auto client = make();
        QTRY_COMPARE(client->ssid(), u"Cafe"_s);
        m_mock.change(radio, Names::device, {{u"State"_s, state}});
        waitForChanges(*client);
        QCOMPARE(client->ssid().has_value(), isJoined);
        QCOMPARE(client->rssiValue() != 0, isJoined);
    }

    void namesAreShownAsTextWhateverTheirBytes_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        QTest::newRow("Latin-1") << QByteArray("Caf\xe9") << u"Café"_s;
        QTest::newRow("Vietnamese") << QByteArray("Cà Phê") << u"Cà Phê"_s;
        QTest::newRow("lines and markup") << QByteArray("<b>\nx</b>") << u"<b>\nx</b>"_s;
    }

    void namesAreShownAsTextWhateverTheirBytes()
    {
        QFETCH(const QByteArray, bytes);
        QFETCH(const QString, text);
        const QString radio = m_mock.addRadio();
        join(radio, m_mock.addNetwork(radio, bytes));
        const auto client = make();
        QTRY_COMPARE(client->ssid(), text);
    }

    void aCurrentNetworkThatHidesHasAStrengthAndNoName()
    {
        const QString radio = m_mock.addRadio();
        join(radio, m_mock.addNetwork(radio, QByteArray(32, '\0'), 60));
        const auto client = make();
        QTRY_COMPARE(client->rssiValue(), qint64(-60));
        QCOMPARE(client->ssid(), std::nullopt);
    }

    void theRadioThatCarriesTheTrafficCounts()
    {
        const QString first = m_mock.addRadio(u"wlan0"_s);
        const QString second = m_mock.addRadio(u"wlan1"_s);
        join(second, m_mock.addNetwork(second, "Second"));
        join(first, m_mock.addNetwork(first, "First"));
        setTraffic(second);
        const auto client = make();
        QTRY_COMPARE(client->ssid(), u"Second"_s);
        setTraffic(first);
        QTRY_COMPARE(client->ssid(), u"First"_s);
    }

    void withoutTrafficTheJoinedRadioCounts()
    {
        m_mock.addRadio(u"wlan0"_s);
        const QString second = m_mock.addRadio(u"wlan1"_s);
        join(second, m_mock.addNetwork(second, "Second"));
        m_mock.change(Names::managerPath, Names::manager,
                      {{u"PrimaryConnection"_s, pathTo(u"/"_s)}});
        const auto client = make();
        QTRY_COMPARE(client->ssid(), u"Second"_s);
    }

    void aRadioThatIsReadyComesBeforeOneThatIsNot()
    {
        const QString first = m_mock.addRadio(u"wlan0"_s);
        const QString second = m_mock.addRadio(u"wlan1"_s);
        m_mock.addNetwork(second, "Second");
        m_mock.change(first, Names::device, {{u"State"_s, 20U}});
        const auto client = make();
        QCOMPARE(scanOf(*client).take().value(0).name.value().text, u"Second"_s);
        m_mock.addNetwork(first, "First");
        m_mock.change(first, Names::device, {{u"State"_s, 30U}});
        m_mock.change(second, Names::device, {{u"State"_s, 20U}});
        QCOMPARE(scanOf(*client).take().value(0).name.value().text, u"First"_s);
    }

    void aWiredDeviceIsNoInterface()
    {
        m_mock.call(u"AddEthernetDevice"_s, {u"eth0"_s, u"eth0"_s, 100});
        const auto client = make();
        waitUntilRead(*client);
        QVERIFY(!client->hasInterface());
    }

    void nonsenseIsReadAsNothing()
    {
        const QString radio = m_mock.addRadio();
        const QString cafe = m_mock.addNetwork(radio, "Cafe", 60);
        join(radio, cafe);
        const auto client = make();
        QTRY_COMPARE(client->ssid(), u"Cafe"_s);
        m_mock.change(cafe, Names::accessPoint, {{u"Strength"_s, u"strong"_s}, {u"Ssid"_s, 7U}});
        QTRY_COMPARE(client->rssiValue(), qint64(-120));
        m_mock.change(radio, Names::wireless,
                      {{u"ActiveAccessPoint"_s, u"here"_s}, {u"AccessPoints"_s, u"all"_s}});
        QTRY_COMPARE(client->rssiValue(), qint64(0));
        QVERIFY(scanOf(*client).take().isEmpty());
        m_mock.change(radio, Names::device, {{u"State"_s, u"up"_s}});
        QTRY_COMPARE(client->ssid(), std::nullopt);
    }

    void onlyTheServiceIsBelieved()
    {
        const QString radio = m_mock.addRadio();
        join(radio, m_mock.addNetwork(radio, "Cafe"));
        const auto client = make();
        QTRY_COMPARE(client->ssid(), u"Cafe"_s);
        auto liar = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"liar"_s);
        auto lie = QDBusMessage::createSignal(radio, Names::properties, u"PropertiesChanged"_s);
        lie << Names::device << QVariantMap{{u"State"_s, 30U}} << QStringList();
        liar.send(lie);
        auto removal = QDBusMessage::createSignal(Names::objectsPath, Names::objectManager,
                                                  u"InterfacesRemoved"_s);
        removal << pathTo(radio) << QStringList{Names::wireless, Names::device};
        liar.send(removal);
        // The bus keeps the order: after this answer, the false signals have been received.
        liar.call(QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/"_s,
                                                 u"org.freedesktop.DBus"_s, u"GetId"_s));
        waitForChanges(*client);
        QDBusConnection::disconnectFromBus(u"liar"_s);
        QCOMPARE(client->ssid(), u"Cafe"_s);
    }

    void withoutTheServiceThereIsNoInterface()
    {
        m_mock.stop();
        const auto client = make();
        const WifiError none(WifiError::Code::NoInterface);
        QVERIFY(scanOf(*client).error() == none);
        QVERIFY(joinOf(*client, "Cafe", u"12345678"_s).error() == none);
        QVERIFY(!client->hasInterface());
        QCOMPARE(client->ssid(), std::nullopt);
        QCOMPARE(client->rssiValue(), qint64(0));
        m_mock.start();
    }

    void aServiceThatDiesBeforeItHasAnsweredIsNotThere()
    {
        m_mock.freeze();
        const auto client = make();
        ScanCall scan = scanOf(*client);
        QCoreApplication::processEvents();
        QVERIFY(!scan.hasEnded());
        m_mock.stop();
        QVERIFY(scan.error() == WifiError(WifiError::Code::NoInterface));
        m_mock.start();
    }

    void aServiceThatComesLaterIsFound()
    {
        m_mock.stop();
        const auto client = make();
        waitUntilRead(*client);
        m_mock.start();
        m_mock.addRadio();
        QTRY_VERIFY(client->hasInterface());
    }

    void afterARestartAllIsReadAnew()
    {
        const QString radio = m_mock.addRadio();
        join(radio, m_mock.addNetwork(radio, "Before"));
        const auto client = make();
        QTRY_COMPARE(client->ssid(), u"Before"_s);
        m_mock.stop();
        QTRY_VERIFY(!client->hasInterface());
        QCOMPARE(client->ssid(), std::nullopt);
        m_mock.start();
        QVERIFY(!client->hasInterface());
        const QString again = m_mock.addRadio();
        join(again, m_mock.addNetwork(again, "After"));
        QTRY_COMPARE(client->ssid(), u"After"_s);
    }

    void aServiceThatDidNotAnswerIsAskedAgain()
    {
        const QString radio = m_mock.addRadio();
        join(radio, m_mock.addNetwork(radio, "Cafe"));
        m_mock.freeze();
        NetworkManagerWifiClient client(QDBusConnection::sessionBus(),
                                        {.reply = 100ms, .retry = 50ms});
        QVERIFY(scanOf(client).error() == WifiError(WifiError::Code::TimedOut));
        QVERIFY(!client.hasInterface());
        m_mock.thaw();
        QTRY_COMPARE(client.ssid(), u"Cafe"_s);
    }

    void withoutABusThereIsNoInterfaceAndNoPassword()
    {
        NetworkManagerWifiClient client{QDBusConnection(u"no such connection"_s), limits()};
        QVERIFY(!client.hasInterface());
        const WifiError none(WifiError::Code::NoInterface);
        QVERIFY(scanOf(client).error() == none);
        QVERIFY(joinOf(client, "Cafe", u"12345678"_s).error() == none);
        QVERIFY(passwordOf(client, u"Cafe"_s).error() == WifiError(WifiError::Code::ServiceGone));
    }

private:
    static std::unique_ptr<NetworkManagerWifiClient> make()
    {
        return std::make_unique<NetworkManagerWifiClient>(QDBusConnection::sessionBus(), limits());
    }

    void join(const QString &radio, const QString &network)
    {
        m_mock.call(u"JoinNetwork"_s, {radio, network});
    }

    void setTraffic(const QString &radio)
    {
        m_mock.change(Names::managerPath, Names::manager,
                      {{u"PrimaryConnection"_s,
                        m_mock.property(radio, Names::device, u"ActiveConnection"_s)}});
    }

    /// A scan starts with the service's first answer, and ends at once if there is no radio.
    static void waitUntilRead(WifiClient &client) { scanOf(client).error(); }

    /// The service reports in order, so earlier changes are known when a scan has ended.
    static void waitForChanges(WifiClient &client) { scanOf(client).error(); }

    NetworkManagerMock m_mock;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::NetworkManagerRadioTest)
#include "NetworkManagerRadioTest.moc"
