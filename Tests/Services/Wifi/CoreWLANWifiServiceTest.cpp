#include "Services/Wifi/CoreWLANWifiService.h"

#include "Core/Support/AppError.h"
#include "Platform/Wifi/FakeWifiClient.h"
#include "Platform/Wifi/WifiError.h"
#include "Platform/Wifi/WifiName.h"
#include "Tests/Support/RunTask.h"
#include "Tests/Support/Services/LastWords.h"

#include <QTest>

#include <memory>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(quorvel::WifiError::Code)

namespace quorvel::tests {

namespace {

using Networks = QList<WifiNetwork>;
using Scanned = QList<ScannedNetwork>;
using Code = WifiError::Code;

ScannedNetwork heard(const QString &name, qint64 rssiDBm)
{
    return {.name = WifiName::fromBytes(name.toUtf8()), .rssiDBm = rssiDBm};
}

} // namespace

class CoreWLANWifiServiceTest final : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_client.emplace(); }

    void withoutAnInterfaceThereIsNoNetwork()
    {
        m_client->interfaceThere = false;
        QCOMPARE(service().currentSSID(), std::nullopt);
        QVERIFY(!service().currentSignal());
    }

    void theCurrentNetworkIsTheClients()
    {
        m_client->currentSSID = u"Cafe 5G"_s;
        m_client->currentRSSI = -61;
        QCOMPARE(service().currentSSID(), u"Cafe 5G"_s);
        QVERIFY(service().currentSignal() == WifiSignal(-61));
    }

    void onlyAStrengthOfZeroIsNone()
    {
        m_client->currentRSSI = 0;
        QVERIFY(!service().currentSignal());
        m_client->currentRSSI = -1;
        QVERIFY(service().currentSignal() == WifiSignal(-1));
        m_client->currentRSSI = 1;
        QVERIFY(service().currentSignal() == WifiSignal(1));
    }

    void aScanIsRankedAndCutToThree()
    {
        m_client->scans.willSucceed({heard(u"A"_s, -80), heard(u"B"_s, -50), heard(u"A"_s, -40),
                                     heard(u"C"_s, -60), heard(u"D"_s, -55)});
        QCOMPARE(runTask(service().scanNearbyNetworks()),
                 (Networks{{u"A"_s, -40}, {u"B"_s, -50}, {u"D"_s, -55}}));
        QCOMPARE(m_client->scans.requests.size(), 1U);
    }

    void aNetworkWithoutANameIsLeftOut()
    {
        m_client->scans.willSucceed({{.name = {}, .rssiDBm = -30}, heard(u"A"_s, -80)});
        QCOMPARE(runTask(service().scanNearbyNetworks()), (Networks{{u"A"_s, -80}}));
    }

    void hostileNamesAreListedAsTheyAre()
    {
        const QString markup = u"<img src=\"file:///etc/passwd\">"_s;
        m_client->scans.willSucceed({heard(markup, -40), heard(u"two\nlines\r\n"_s, -50)});
        QCOMPARE(runTask(service().scanNearbyNetworks()),
                 (Networks{{markup, -40}, {u"two\nlines\r\n"_s, -50}}));
    }

    void aScanWithoutAnInterfaceFindsNothing()
    {
        m_client->scans.willFail(WifiError(Code::NoInterface));
        QCOMPARE(runTask(service().scanNearbyNetworks()), Networks());
    }

    void anyOtherScanFailureIsTold_data() { failures(); }

    void anyOtherScanFailureIsTold()
    {
        QFETCH(const Code, code);
        if (code == Code::NoInterface)
            return;
        const WifiError error(code, u"Device busy"_s);
        m_client->scans.willFail(error);
        const auto told = errorOfTask<AppError>(service().scanNearbyNetworks());
        QVERIFY(told == AppError::network(error.errorDescription()));
    }

    void joiningScansAndThenAssociatesByThatName()
    {
        m_client->scans.willSucceed({heard(u"Other"_s, -30), heard(u"Cafe 5G"_s, -70)});
        m_client->associations.willSucceed({});
        runTask(service().connect(u"Cafe 5G"_s, u" pass word "_s));
        QCOMPARE(m_client->scans.requests.size(), 1U);
        QCOMPARE(m_client->associations.requests.size(), 1U);
        QCOMPARE(m_client->associations.requests.front().name.bytes, QByteArray("Cafe 5G"));
        QCOMPARE(m_client->associations.requests.front().password, u" pass word "_s);
    }

    void joiningByTextTakesTheBytesThatWereHeard()
    {
        m_client->scans.willSucceed(
            {{.name = WifiName::fromBytes("Caf\xe9"), .rssiDBm = -60}, heard(u"Café"_s, -50)});
        m_client->associations.willSucceed({});
        runTask(service().connect(u"Café"_s, u"12345678"_s));
        QCOMPARE(m_client->associations.requests.front().name.bytes, QByteArray("Caf\xe9"));
    }

    void aNameThatIsNotInRangeIsNamedInTheFailure_data()
    {
        QTest::addColumn<QString>("ssid");
        QTest::addColumn<QString>("message");
        QTest::newRow("another name") << u"Cafe 5G"_s << u"Network \"Cafe 5G\" not found nearby"_s;
        QTest::newRow("another case") << u"cafe"_s << u"Network \"cafe\" not found nearby"_s;
        QTest::newRow("a blank behind") << u"Cafe "_s << u"Network \"Cafe \" not found nearby"_s;
        QTest::newRow("no name") << QString() << u"Network \"\" not found nearby"_s;
        QTest::newRow("quotes and placeholders")
            << u"\"%1\""_s << u"Network \"\"%1\"\" not found nearby"_s;
    }

    void aNameThatIsNotInRangeIsNamedInTheFailure()
    {
        QFETCH(const QString, ssid);
        QFETCH(const QString, message);
        m_client->scans.willSucceed({heard(u"Cafe"_s, -50), {.name = {}, .rssiDBm = -30}});
        const auto error = errorOfTask<AppError>(service().connect(ssid, u"12345678"_s));
        QVERIFY(error == AppError::network(message));
        QVERIFY(m_client->associations.requests.empty());
    }

    void joiningWithoutAnInterfaceFails()
    {
        m_client->scans.willFail(WifiError(Code::NoInterface));
        const auto error = errorOfTask<AppError>(service().connect(u"Cafe"_s, u"12345678"_s));
        QVERIFY(error == AppError::network(u"No WiFi interface available"_s));
        QVERIFY(m_client->associations.requests.empty());
    }

    void aFailedScanFailsTheJoin_data() { failures(); }

    void aFailedScanFailsTheJoin()
    {
        QFETCH(const Code, code);
        const WifiError error(code, u"Device busy"_s);
        m_client->scans.willFail(error);
        const auto told = errorOfTask<AppError>(service().connect(u"Cafe"_s, u"12345678"_s));
        QVERIFY(told == AppError::network(error.errorDescription()));
        QVERIFY(m_client->associations.requests.empty());
    }

    void aFailedAssociationFailsTheJoin_data() { failures(); }

    void aFailedAssociationFailsTheJoin()
    {
        QFETCH(const Code, code);
        const WifiError error(code, u"Device busy"_s);
        m_client->scans.willSucceed({heard(u"Cafe"_s, -50)});
        m_client->associations.willFail(error);
        const auto told = errorOfTask<AppError>(service().connect(u"Cafe"_s, u"12345678"_s));
        QVERIFY(told == AppError::network(error.errorDescription()));
    }

    void nothingIsTriedTwice()
    {
        m_client->scans.willFail(WifiError(Code::TimedOut));
        QVERIFY(errorOfTask<AppError>(service().connect(u"Cafe"_s, u"12345678"_s)).has_value());
        QCOMPARE(m_client->scans.requests.size(), 1U);
    }

    void callsRunBesideEachOther()
    {
        m_client->scans.willHold();
        m_client->scans.willHold();
        auto first = service().scanNearbyNetworks();
        auto second = service().scanNearbyNetworks();
        QCOMPARE(m_client->scans.requests.size(), 2U);
        m_client->scans.willSucceed({heard(u"A"_s, -50)});
        m_client->scans.release();
        QCOMPARE(runTask(std::move(first)), (Networks{{u"A"_s, -50}}));
        QVERIFY(!second.isReady());
        m_client->scans.willSucceed({heard(u"B"_s, -50)});
        m_client->scans.release();
        QCOMPARE(runTask(std::move(second)), (Networks{{u"B"_s, -50}}));
    }

    void aJoinOutlivesTheServiceThatBeganIt()
    {
        m_client->scans.willHold();
        auto service = std::make_unique<CoreWLANWifiService>(*m_client);
        auto joining = service->connect(u"Cafe"_s, u"12345678"_s);
        service.reset();
        m_client->scans.willSucceed({heard(u"Cafe"_s, -50)});
        m_client->associations.willSucceed({});
        m_client->scans.release();
        runTask(std::move(joining));
        QCOMPARE(m_client->associations.requests.size(), 1U);
    }

    void anUnscriptedCallEndsTheTest()
    {
        const auto words = lastWords([this] { auto task = service().scanNearbyNetworks(); });
        QCOMPARE(words, QByteArray("FakeWifiClient::scan: called without a scripted answer"));
    }

private:
    CoreWLANWifiService service() { return CoreWLANWifiService(*m_client); }

    static void failures()
    {
        QTest::addColumn<Code>("code");
        for (int code = 0; code <= int(Code::Failed); ++code)
            QTest::addRow("%d", code) << Code(code);
    }

    std::optional<FakeWifiClient> m_client;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::CoreWLANWifiServiceTest)
#include "CoreWLANWifiServiceTest.moc"
