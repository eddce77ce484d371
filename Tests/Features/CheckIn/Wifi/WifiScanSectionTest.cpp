#include "Core/Keychain/KeychainError.h"
#include "Core/Support/AppError.h"
#include "Features/CheckIn/Wifi/WifiRow.h"
#include "Tests/Features/CheckIn/Wifi/WifiSectionCase.h"

#include <QAbstractItemModel>
#include <QSignalSpy>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

/// What the block lists, when it scans and asks the keychain, and how it can be destroyed.
class WifiScanSectionTest final : public WifiSectionCase
{
    Q_OBJECT

private slots:
    void itBeginsScanningAndListensOnlyWhenShown()
    {
        settle();
        QCOMPARE(m_section->scanState(), ScanState::Scanning);
        QCOMPARE(m_section->headerText(), u"Scanning…"_s);
        QVERIFY(!m_section->showsHint());
        QCOMPARE(m_services->wifi.scanCount, 0);
        QVERIFY(rows().isEmpty());
        QCOMPARE(m_section->expanded(), std::nullopt);
        QVERIFY(!m_section->connecting() && !m_section->storedRow().copiedScanned);
        QVERIFY(!m_section->autofillAttempted() && !m_section->connectRow().revealConnectPassword);
    }

    void aScanListsItsNetworksInItsOrder()
    {
        show(three);
        QCOMPARE(m_section->scanState(), ScanState::Loaded);
        QCOMPARE(m_section->headerText(), u"3 found"_s);
        QCOMPARE(rows().size(), 3);
        QVERIFY(rows()[0] == (WifiRow{.ssid = u"A"_s,
                                      .detailText = u"Good · -65 dBm"_s,
                                      .bars = 3,
                                      .description = u"Good · -65 dBm"_s}));
        QCOMPARE(rows()[1].detailText, u"Fair · -75 dBm"_s);
        QCOMPARE(rows()[2].detailText, u"Weak · -85 dBm"_s);
        QCOMPARE(rows()[2].bars, 1);
    }

    void aScanThatFailsOrFindsNothingIsUnavailable_data()
    {
        QTest::addColumn<bool>("fails");
        QTest::newRow("fails") << true;
        QTest::newRow("finds nothing") << false;
    }

    void aScanThatFailsOrFindsNothingIsUnavailable()
    {
        QFETCH(const bool, fails);
        if (fails)
            m_services->wifi.scans.willFail(AppError::network(u"busy"_s));
        else
            m_services->wifi.scans.willSucceed({});
        m_section->appear();
        settle();
        QCOMPARE(m_section->scanState(), ScanState::Unavailable);
        QCOMPARE(m_section->headerText(), u"0 found"_s);
        QVERIFY(!m_section->showsHint());
        QVERIFY(rows().isEmpty());
    }

    void aFailedScanIsUnavailableAlthoughTheMachineIsJoined()
    {
        m_section->setCurrentNetwork(u"Mine"_s, WifiSignal(-50));
        m_services->wifi.scans.willFail(AppError::network(u"busy"_s));
        m_section->appear();
        settle();
        QCOMPARE(m_section->scanState(), ScanState::Unavailable);
    }

    void theJoinedNetworkAloneIsLoaded()
    {
        m_section->setCurrentNetwork(u"Mine"_s, std::nullopt);
        show({});
        QCOMPARE(m_section->scanState(), ScanState::Loaded);
        QCOMPARE(m_section->headerText(), u"1 found"_s);
        QCOMPARE(rows().size(), 1);
    }

    void aJoinedNetworkThatWasNotHeardComesLast_data()
    {
        QTest::addColumn<bool>("isWeighed");
        QTest::addColumn<QString>("detailText");
        QTest::newRow("with its signal") << true << u"Strong · -40 dBm"_s;
        QTest::newRow("without") << false << u"Strong · -60 dBm"_s;
    }

    void aJoinedNetworkThatWasNotHeardComesLast()
    {
        QFETCH(const bool, isWeighed);
        QFETCH(const QString, detailText);
        m_section->setCurrentNetwork(u"a"_s,
                                     isWeighed ? std::optional(WifiSignal(-40)) : std::nullopt);
        show(three);
        QCOMPARE(rows().size(), 4);
        QVERIFY(rows()[3] == (WifiRow{.ssid = u"a"_s,
                                      .isOpen = true,
                                      .isConnected = true,
                                      .detailText = detailText,
                                      .bars = 4,
                                      .description = u"connected, "_s + detailText}));
    }

    void aJoinedNetworkThatWasHeardStaysWhereItIs()
    {
        m_section->setCurrentNetwork(u"B"_s, WifiSignal(-40));
        show(three);
        QCOMPARE(rows().size(), 3);
        QVERIFY(rows()[1].isConnected);
        QCOMPARE(rows()[1].detailText, u"Fair · -75 dBm"_s);
    }

    void onlyTheFirstScanOpensTheJoinedRow()
    {
        m_section->setCurrentNetwork(u"B"_s, std::nullopt);
        show(three);
        QCOMPARE(m_section->expanded(), u"B"_s);
        m_section->toggle(u"B"_s);
        showAgain(three);
        QCOMPARE(m_section->expanded(), std::nullopt);
    }

    void aFailedScanIsNotTheFirst()
    {
        m_section->setCurrentNetwork(u"B"_s, std::nullopt);
        m_services->wifi.scans.willFail(AppError::network(u"busy"_s));
        m_section->appear();
        settle();
        m_section->setConnectPasswordDraft(u"12345678"_s);
        showAgain(three);
        QCOMPARE(m_section->expanded(), u"B"_s);
        // It was typed for a network without a row.
        QCOMPARE(m_section->connectRow().connectPasswordDraft, QString());
    }

    void withoutAJoinedNetworkNothingOpens()
    {
        show(three);
        QCOMPARE(m_section->expanded(), std::nullopt);
    }

    void eachShowingListensOnceAndKeepsTheListMeanwhile()
    {
        show(three);
        m_section->appear();
        QCOMPARE(m_services->wifi.scanCount, 1);
        m_section->disappear();
        m_services->wifi.scans.willHold();
        m_section->appear();
        settle();
        QCOMPARE(m_services->wifi.scanCount, 2);
        QCOMPARE(m_section->scanState(), ScanState::Loaded);
        QCOMPARE(rows().size(), 3);
    }

    void whatIsHeardAfterHidingIsPassedOver()
    {
        m_services->wifi.scans.willHold();
        m_section->appear();
        m_section->disappear();
        m_services->wifi.scans.willSucceed(three);
        m_services->wifi.scans.release();
        settle();
        QCOMPARE(m_section->scanState(), ScanState::Scanning);
        QVERIFY(m_services->keychain.read.isEmpty());
    }

    void theLatestShowingsScanCounts()
    {
        m_services->wifi.scans.willHold();
        m_section->appear();
        m_section->disappear();
        m_services->wifi.scans.willHold();
        m_section->appear();
        m_services->wifi.scans.willSucceed({{u"Old"_s, -50}});
        m_services->wifi.scans.release();
        settle();
        QCOMPARE(m_section->scanState(), ScanState::Scanning);
        m_services->wifi.scans.willSucceed(three);
        m_services->wifi.scans.release();
        settle();
        QCOMPARE(rows().size(), 3);
    }

    void theKeychainIsAskedOnceANetworkAndScan()
    {
        show(three);
        for (int paint = 0; paint < 3; ++paint)
            m_section->toggle(u"A"_s);
        m_section->setCurrentNetwork(u"Mine"_s, std::nullopt);
        m_section->setCurrentNetwork(u"Mine"_s, WifiSignal(-50));
        QCOMPARE(m_services->keychain.read, QStringList({u"A"_s, u"B"_s, u"C"_s, u"Mine"_s}));
        m_services->keychain.read.clear();
        m_services->keychain.passwords.insert(u"B"_s, u"stored elsewhere"_s);
        showAgain(three);
        QCOMPARE(m_services->keychain.read.size(), 4);
        QVERIFY(rows()[1].isSaved);
    }

    void aKeychainThatIsLockedIsAskedOnceAScan()
    {
        using Operation = KeychainError::Operation;
        m_services->keychain.failure =
            KeychainError::unhandledStatus(KeychainStatus::Code(-25308), Operation::Read);
        show(three);
        m_section->setCurrentNetwork(u"Mine"_s, std::nullopt);
        QCOMPARE(m_services->keychain.read, QStringList({u"A"_s}));
        QVERIFY(!rows()[0].isSaved);
        m_services->keychain.failure.reset();
        showAgain(three);
        QCOMPARE(m_services->keychain.read.size(), 5);
    }

    void anItemThatIsNoTextSaysNothingOfTheOthers()
    {
        m_services->keychain.failure = KeychainError::unexpectedItemFormat();
        show(three);
        QCOMPARE(m_services->keychain.read.size(), 3);
    }

    void rowsAreChangedInPlace()
    {
        show(three);
        const QSignalSpy resets(m_section->rows(), &QAbstractItemModel::modelReset);
        const QSignalSpy changes(m_section->rows(), &QAbstractItemModel::dataChanged);
        const QSignalSpy removals(m_section->rows(), &QAbstractItemModel::rowsRemoved);
        m_section->toggle(u"B"_s);
        m_section->setConnectPasswordDraft(u"typing"_s);
        QCOMPARE(changes.count(), 1);
        QCOMPARE(resets.count() + removals.count(), 0);
        QVERIFY(rows()[1].isOpen);
    }

    void destroyedWhileItWaitsItDoesNothingMore()
    {
        m_services->wifi.scans.willHold();
        m_section->appear();
        hold(u"A"_s, u"12345678"_s);
        m_services->reader.passwords.willHold();
        m_section->fillFromSystem(u"A"_s);
        m_section.reset();
        m_services->wifi.scans.willSucceed(three);
        m_services->wifi.scans.release();
        endJoin();
        answerFill(u"password"_s);
        QCOMPARE(m_connected, 0);
        QVERIFY(m_services->keychain.saved.isEmpty() && m_services->keychain.read.isEmpty());
    }

    void itMayBeDestroyedByWhoeverIsConnected()
    {
        WifiScanSection::Inputs inputs{.keychainStore = m_services->keychain,
                                       .systemPasswordReader = m_services->reader,
                                       .wifiService = m_services->wifi,
                                       .pasteboard = m_services->pasteboard,
                                       .onConnected = [this] { m_section.reset(); }};
        for (const bool joins : {false, true}) {
            m_section.emplace(inputs);
            m_section->setConnectPasswordDraft(u"12345678"_s);
            m_services->wifi.joins.willSucceed({});
            if (joins)
                m_section->connectTo(u"A"_s);
            else
                m_section->saveOnly(u"A"_s);
            settle();
            QVERIFY(!m_section);
        }
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::WifiScanSectionTest)
#include "WifiScanSectionTest.moc"
