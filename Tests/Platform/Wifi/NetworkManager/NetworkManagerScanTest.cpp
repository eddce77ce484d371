#include "Platform/Wifi/NetworkManagerWifiClient.h"
#include "Platform/Wifi/WifiName.h"
#include "Tests/Platform/Wifi/NetworkManager/NetworkManagerMock.h"
#include "Tests/Platform/Wifi/NetworkManager/WifiOutcomes.h"
#include "Tests/Support/Patience.h"

#include <QDBusConnection>
#include <QTest>
#include <QVariant>

#include <algorithm>
#include <chrono>
#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

Q_DECLARE_METATYPE(quorvel::WifiError::Code)

namespace quorvel::tests {

namespace {

namespace Names = NetworkManagerNames;
using Code = WifiError::Code;
using Scanned = QList<ScannedNetwork>;

/// Sorted by strength, since a scan has no order.
Scanned sorted(Scanned networks)
{
    std::sort(networks.begin(), networks.end(),
              [](const auto &left, const auto &right) { return left.rssiDBm > right.rssiDBm; });
    return networks;
}

ScannedNetwork heard(const QByteArray &bytes, qint64 rssiDBm)
{
    return {.name = WifiName::fromBytes(bytes), .rssiDBm = rssiDBm};
}

} // namespace

class NetworkManagerScanTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_mock.start(); }
    void init()
    {
        m_mock.call(u"Clear"_s);
        m_client = std::make_unique<NetworkManagerWifiClient>(
            QDBusConnection::sessionBus(), WifiLimits{.reply = 1min, .retry = 50ms, .scan = 1min});
        // Without a radio it ends with the service's first answer.
        QVERIFY(scanOf(*m_client).error() == WifiError(Code::NoInterface));
    }
    void cleanup() { m_client.reset(); }

    void everyAccessPointIsListedWithItsStrength()
    {
        const QString radio = m_mock.addRadio();
        m_mock.addNetwork(radio, "Cafe", 100);
        m_mock.addNetwork(radio, "Cafe", 67);
        m_mock.addNetwork(radio, "Bar", 50);
        m_mock.addNetwork(radio, "Far", 0);
        QCOMPARE(sorted(scanOf(*m_client).take()),
                 (Scanned{heard("Cafe", -40), heard("Cafe", -60), heard("Bar", -70),
                          heard("Far", -100)}));
    }

    void theNetworkThatIsJoinedIsOnTheScaleOfTheOthers()
    {
        const QString radio = m_mock.addRadio();
        const QString cafe = m_mock.addNetwork(radio, "Cafe", 50);
        m_mock.call(u"JoinNetwork"_s, {radio, cafe});
        QCOMPARE(scanOf(*m_client).take(), (Scanned{heard("Cafe", -70)}));
        QCOMPARE(m_client->rssiValue(), qint64(-70));
        m_mock.change(cafe, Names::accessPoint, {{u"Strength"_s, QVariant::fromValue(uchar(100))}});
        QCOMPARE(scanOf(*m_client).take(), (Scanned{heard("Cafe", -40)}));
        QCOMPARE(m_client->rssiValue(), qint64(-20));
    }

    void namesOfAnyBytesComeAsTheyAre_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("Latin-1") << QByteArray("Caf\xe9");
        QTest::newRow("not UTF-8") << QByteArray("\xff\xfe\xc0\x80");
        QTest::newRow("32 bytes") << QByteArray(32, 'x');
        QTest::newRow("lines") << QByteArray("a\r\nb\n\n");
        QTest::newRow("markup") << QByteArray("<img src=\"http://x/\">");
        QTest::newRow("a zero inside") << QByteArray("a\0b", 3);
        QTest::newRow("emoji") << QByteArray("☕ 5G");
    }

    void namesOfAnyBytesComeAsTheyAre()
    {
        QFETCH(const QByteArray, bytes);
        m_mock.addNetwork(m_mock.addRadio(), bytes, 50);
        const Scanned networks = scanOf(*m_client).take();
        QCOMPARE(networks, (Scanned{heard(bytes, -70)}));
        QCOMPARE(networks.first().name->bytes, bytes);
    }

    void aNetworkThatHidesIsListedWithoutAName_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("nothing") << QByteArray("");
        QTest::newRow("32 zeros") << QByteArray(32, '\0');
    }

    void aNetworkThatHidesIsListedWithoutAName()
    {
        QFETCH(const QByteArray, bytes);
        m_mock.addNetwork(m_mock.addRadio(), bytes, 50);
        QCOMPARE(scanOf(*m_client).take(), (Scanned{{.name = {}, .rssiDBm = -70}}));
    }

    void theCallReturnsBeforeItEnds()
    {
        const ScanCall call = scanOf(*m_client);
        QVERIFY(!call.hasEnded());
        QTRY_VERIFY(call.hasEnded());
    }

    void whatIsHeardDuringTheScanIsListed()
    {
        const QString radio = m_mock.addRadio();
        ScanCall call = heldScan();
        m_mock.addNetwork(radio, "New", 50);
        QVERIFY(!call.hasEnded());
        m_mock.call(u"Hurry"_s);
        QCOMPARE(call.take(), (Scanned{heard("New", -70)}));
    }

    void whatIsLostDuringTheScanIsNotListed()
    {
        const QString radio = m_mock.addRadio();
        const QString lost = m_mock.addNetwork(radio, "Lost");
        ScanCall call = heldScan();
        m_mock.call(u"RemoveNetwork"_s, {radio, lost});
        m_mock.call(u"Hurry"_s);
        QCOMPARE(call.take(), Scanned());
    }

    void otherNewsDoNotEndTheScan()
    {
        const QString radio = m_mock.addRadio();
        const QString cafe = m_mock.addNetwork(radio, "Cafe", 50);
        ScanCall call = heldScan();
        for (int percent = 60; percent <= 100; percent += 10)
            m_mock.change(cafe, Names::accessPoint,
                          {{u"Strength"_s, QVariant::fromValue(uchar(percent))}});
        QVERIFY(!call.hasEnded());
        m_mock.call(u"Hurry"_s);
        QCOMPARE(call.take(), (Scanned{heard("Cafe", -40)}));
    }

    void aRadioThatNeverFinishesGivesWhatItHeardLast()
    {
        m_mock.addNetwork(m_mock.addRadio(), "Cafe", 50);
        m_mock.script(u"scan-ms"_s, -1);
        limitScansTo(200ms);
        QCOMPARE(scanOf(*m_client).take(), (Scanned{heard("Cafe", -70)}));
    }

    void aRadioThatNeverAnswersTimesOut()
    {
        m_mock.addNetwork(m_mock.addRadio(), "Cafe", 50);
        m_mock.script(u"scan-answer-ms"_s, -1);
        limitScansTo(200ms);
        const auto error = scanOf(*m_client).error();
        QVERIFY(error == WifiError(Code::TimedOut));
        QCOMPARE(error->errorDescription(), u"WiFi took too long to answer"_s);
    }

    void aRadioThatAnswersSlowlyIsWaitedFor()
    {
        m_mock.addNetwork(m_mock.addRadio(), "Cafe", 50);
        m_mock.script(u"scan-answer-ms"_s, 300);
        QCOMPARE(scanOf(*m_client).take(), (Scanned{heard("Cafe", -70)}));
    }

    void aRefusedScanFails_data()
    {
        QTest::addColumn<QString>("refusal");
        QTest::addColumn<QString>("sentence");
        QTest::newRow("unavailable")
            << u"unavailable"_s << u"The system does not allow this use of WiFi"_s;
        QTest::newRow("denied") << u"denied"_s << u"The system does not allow this use of WiFi"_s;
        QTest::newRow("odd") << u"odd"_s << u"WiFi failed: The radio is on fire"_s;
    }

    void aRefusedScanFails()
    {
        QFETCH(const QString, refusal);
        QFETCH(const QString, sentence);
        m_mock.addNetwork(m_mock.addRadio(), "Cafe");
        m_mock.script(u"scan"_s, refusal);
        const auto error = scanOf(*m_client).error();
        QVERIFY(error.has_value());
        QCOMPARE(error->errorDescription(), sentence);
    }

    void withoutARadioNothingIsScanned()
    {
        const auto error = scanOf(*m_client).error();
        QVERIFY(error == WifiError(Code::NoInterface));
        QCOMPARE(error->errorDescription(), u"No WiFi interface available"_s);
    }

    void aRadioThatIsOffIsNotScanned_data()
    {
        QTest::addColumn<QString>("property");
        QTest::newRow("by the user") << u"WirelessEnabled"_s;
        QTest::newRow("by a switch") << u"WirelessHardwareEnabled"_s;
    }

    void aRadioThatIsOffIsNotScanned()
    {
        QFETCH(const QString, property);
        m_mock.addRadio();
        m_mock.change(Names::managerPath, Names::manager, {{property, false}});
        const auto error = scanOf(*m_client).error();
        QVERIFY(error == WifiError(Code::RadioOff));
        QCOMPARE(error->errorDescription(), u"WiFi is turned off"_s);
        m_mock.change(Names::managerPath, Names::manager, {{property, true}});
        QCOMPARE(scanOf(*m_client).take(), Scanned());
    }

    void aRadioThatIsPulledOutEndsTheScan()
    {
        const QString radio = m_mock.addRadio();
        m_mock.script(u"scan-ms"_s, -1);
        ScanCall call = scanOf(*m_client);
        QTRY_VERIFY(m_client->hasInterface());
        m_mock.call(u"RemoveRadio"_s, {radio});
        QVERIFY(call.error() == WifiError(Code::NoInterface));
    }

    void aServiceThatEndsEndsTheScan_data()
    {
        QTest::addColumn<QString>("pending");
        QTest::newRow("before its answer") << u"scan-answer-ms"_s;
        QTest::newRow("while it listens") << u"scan-ms"_s;
    }

    void aServiceThatEndsEndsTheScan()
    {
        QFETCH(const QString, pending);
        m_mock.addRadio();
        m_mock.script(pending, -1);
        ScanCall call = scanOf(*m_client);
        QTRY_VERIFY(m_client->hasInterface());
        m_mock.stop();
        const auto error = call.error();
        QVERIFY(error == WifiError(Code::ServiceGone));
        QCOMPARE(error->errorDescription(), u"The network service is not running"_s);
        m_mock.start();
        m_mock.addNetwork(m_mock.addRadio(), "Cafe", 50);
        QTRY_VERIFY(m_client->hasInterface());
        QCOMPARE(scanOf(*m_client).take(), (Scanned{heard("Cafe", -70)}));
    }

    void aServiceThatHangsEndsInATimeOut()
    {
        m_mock.addRadio();
        limitScansTo(2s);
        QTRY_VERIFY(m_client->hasInterface());
        m_mock.freeze();
        ScanCall call = scanOf(*m_client);
        QVERIFY(call.error() == WifiError(Code::TimedOut));
        m_mock.thaw();
        QCOMPARE(scanOf(*m_client).take(), Scanned());
    }

    void scansRunBesideEachOther()
    {
        m_mock.addNetwork(m_mock.addRadio(), "Cafe", 50);
        ScanCall first = scanOf(*m_client);
        ScanCall second = scanOf(*m_client);
        QCOMPARE(first.take(), (Scanned{heard("Cafe", -70)}));
        QCOMPARE(second.take(), (Scanned{heard("Cafe", -70)}));
    }

    void anOpenScanIsDroppedWithItsClient()
    {
        m_mock.addRadio();
        m_mock.script(u"scan-ms"_s, 100);
        const ScanCall call = scanOf(*m_client);
        QTRY_VERIFY(m_client->hasInterface());
        m_client.reset();
        NetworkManagerWifiClient other(QDBusConnection::sessionBus());
        QCOMPARE(scanOf(other).take(), Scanned());
        QVERIFY(!call.hasEnded());
    }

private:
    /// A scan that lasts until the mock is told to hurry.
    ScanCall heldScan()
    {
        m_mock.script(u"scan-ms"_s, 600'000);
        ScanCall call = scanOf(*m_client);
        if (!comes([this] { return m_mock.waitingCount() == 1; }))
            qFatal("the scan does not begin");
        return call;
    }

    void limitScansTo(std::chrono::milliseconds limit)
    {
        m_client = std::make_unique<NetworkManagerWifiClient>(
            QDBusConnection::sessionBus(), WifiLimits{.reply = 1min, .scan = limit});
        QTRY_VERIFY(m_client->hasInterface());
    }

    NetworkManagerMock m_mock;
    std::unique_ptr<NetworkManagerWifiClient> m_client;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::NetworkManagerScanTest)
#include "NetworkManagerScanTest.moc"
