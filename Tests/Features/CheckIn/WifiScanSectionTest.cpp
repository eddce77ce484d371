#include "Features/CheckIn/WifiScanSection.h"

#include "Core/Keychain/FakeKeychainStore.h"
#include "Core/Support/AppError.h"
#include "Platform/Pasteboard/FakePasteboard.h"
#include "Services/Wifi/FakeSystemWifiPasswordReader.h"
#include "Services/Wifi/FakeWifiService.h"
#include "Tests/Support/RunTask.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quorvel::tests {

namespace {

using ScanState = WifiScanSection::ScanState;
using Networks = QList<WifiNetwork>;

const Networks three{{u"A"_s, -65}, {u"B"_s, -75}, {u"C"_s, -85}};
const QString other = WifiScanSection::otherKey;
const QString cannotConnect = u"Couldn't connect — check the password."_s;

struct Services
{
    FakeKeychainStore keychain;
    FakeSystemWifiPasswordReader reader;
    FakeWifiService wifi;
    FakePasteboard pasteboard;
};

} // namespace

class WifiScanSectionTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_section.reset();
        m_services.emplace();
        m_connected = 0;
        m_section.emplace(WifiScanSection::Inputs{.keychainStore = m_services->keychain,
                                                  .systemPasswordReader = m_services->reader,
                                                  .wifiService = m_services->wifi,
                                                  .pasteboard = m_services->pasteboard,
                                                  .onConnected = [this] { ++m_connected; },
                                                  .copiedInterval = 0ms});
    }
    void cleanup() { m_section.reset(); }

    void itBeginsScanningAndListensOnlyWhenShown()
    {
        settle();
        QCOMPARE(m_section->scanState(), ScanState::Scanning);
        QCOMPARE(m_services->wifi.scanCount, 0);
        QVERIFY(m_section->rows().isEmpty());
        QCOMPARE(m_section->expanded(), std::nullopt);
        QVERIFY(!m_section->connecting() && !m_section->copiedScanned());
        QVERIFY(!m_section->autofillAttempted() && !m_section->revealConnectPassword());
    }

    void aScanListsItsNetworksInItsOrder()
    {
        show(three);
        QCOMPARE(m_section->scanState(), ScanState::Loaded);
        const auto rows = m_section->rows();
        QCOMPARE(rows.size(), 3);
        QVERIFY(rows[0] == (WifiRow{.ssid = u"A"_s,
                                    .detailText = u"Good · -65 dBm"_s,
                                    .bars = 3,
                                    .requiresConnect = true}));
        QCOMPARE(rows[1].detailText, u"Fair · -75 dBm"_s);
        QCOMPARE(rows[2].detailText, u"Weak · -85 dBm"_s);
        QCOMPARE(rows[2].bars, 1);
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
        QVERIFY(m_section->rows().isEmpty());
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
        QCOMPARE(m_section->rows().size(), 1);
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
        const auto rows = m_section->rows();
        QCOMPARE(rows.size(), 4);
        QVERIFY(rows[3] == (WifiRow{.ssid = u"a"_s,
                                    .isOpen = true,
                                    .isConnected = true,
                                    .detailText = detailText,
                                    .bars = 4,
                                    .requiresConnect = false}));
    }

    void aJoinedNetworkThatWasHeardStaysWhereItIs()
    {
        m_section->setCurrentNetwork(u"B"_s, WifiSignal(-40));
        show(three);
        QCOMPARE(m_section->rows().size(), 3);
        QVERIFY(m_section->rows()[1].isConnected);
        QCOMPARE(m_section->rows()[1].detailText, u"Fair · -75 dBm"_s);
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
        QCOMPARE(m_section->connectPasswordDraft(), QString());
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
        QCOMPARE(m_section->rows().size(), 3);
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
        QCOMPARE(m_section->rows().size(), 3);
    }

    void hidingLeavesNoPasswordInClear()
    {
        openSaved();
        m_section->toggleRevealStoredPassword(u"A"_s);
        m_section->toggleRevealConnectPassword();
        m_section->disappear();
        QCOMPARE(m_section->revealedScannedPassword(), std::nullopt);
        QVERIFY(!m_section->revealConnectPassword());
        QCOMPARE(m_section->expanded(), u"A"_s);
    }

    void openingAnotherRowForgetsWhatTheFirstHeld()
    {
        openSaved();
        m_section->toggleRevealStoredPassword(u"A"_s);
        m_section->copyStoredPassword(u"A"_s);
        m_section->setConnectPasswordDraft(u"12345678"_s);
        m_section->toggleRevealConnectPassword();
        m_services->wifi.joins.willFail(AppError::network(u"refused"_s));
        m_section->connectTo(u"A"_s);
        settleBriefly();
        QCOMPARE(m_section->connectErrorMessage(), cannotConnect);
        m_section->toggle(u"B"_s);
        QCOMPARE(m_section->expanded(), u"B"_s);
        QCOMPARE(m_section->connectPasswordDraft(), QString());
        QVERIFY(!m_section->revealConnectPassword());
        QCOMPARE(m_section->connectErrorMessage(), std::nullopt);
        QCOMPARE(m_section->revealedScannedPassword(), std::nullopt);
        QVERIFY(!m_section->copiedScanned());
        m_section->setConnectPasswordDraft(u"12345678"_s);
        m_section->toggle(u"B"_s);
        QCOMPARE(m_section->expanded(), std::nullopt);
        QCOMPARE(m_section->connectPasswordDraft(), QString());
    }

    void aRowThatIsNoLongerThereCloses()
    {
        show(three);
        m_section->toggle(u"A"_s);
        m_section->setConnectPasswordDraft(u"12345678"_s);
        showAgain({{u"B"_s, -70}});
        QCOMPARE(m_section->expanded(), std::nullopt);
        QCOMPARE(m_section->connectPasswordDraft(), QString());
    }

    void aRowThatIsStillThereKeepsWhatWasTyped()
    {
        show(three);
        m_section->toggle(u"A"_s);
        m_section->setConnectPasswordDraft(u"12345678"_s);
        showAgain({{u"A"_s, -70}});
        m_section->setCurrentNetwork(u"Mine"_s, WifiSignal(-50));
        QCOMPARE(m_section->expanded(), u"A"_s);
        QCOMPARE(m_section->connectPasswordDraft(), u"12345678"_s);
        QCOMPARE(m_section->rows().size(), 2);
    }

    void thePasswordIsForTheOpenRow_data()
    {
        QTest::addColumn<QString>("row");
        QTest::addColumn<QString>("target");
        QTest::addColumn<bool>("requiresConnect");
        QTest::newRow("the joined network") << u"A"_s << u"A"_s << false;
        QTest::newRow("another") << u"B"_s << u"B"_s << true;
        QTest::newRow("one that is typed") << other << u"Typed"_s << true;
    }

    void thePasswordIsForTheOpenRow()
    {
        QFETCH(const QString, row);
        QFETCH(const QString, target);
        QFETCH(const bool, requiresConnect);
        show(three);
        m_section->setCurrentNetwork(u"A"_s, std::nullopt);
        m_section->setManualSSIDDraft(u"Typed"_s);
        m_section->toggle(row);
        QCOMPARE(m_section->targetSSID(), target);
        QCOMPARE(m_section->targetRequiresConnect(), requiresConnect);
    }

    void withoutAListThePasswordIsForTheTypedName()
    {
        show({});
        m_section->setManualSSIDDraft(u"Typed"_s);
        QCOMPARE(m_section->targetSSID(), u"Typed"_s);
        QVERIFY(m_section->targetRequiresConnect());
    }

    void aNetworkOfTheReservedNameHasNoOpenRow()
    {
        show({{other, -50}});
        m_section->toggle(other);
        QVERIFY(!m_section->rows()[0].isOpen);
    }

    void eightCharactersAreEnoughAndSevenAreNot_data()
    {
        QTest::addColumn<QString>("draft");
        QTest::addColumn<bool>("isEnough");
        QTest::newRow("7") << u"1234567"_s << false;
        QTest::newRow("8") << u"12345678"_s << true;
        QTest::newRow("blanks count") << u"        "_s << true;
        QTest::newRow("7 of two code units") << u"😀😀😀😀😀😀😀"_s << false;
        QTest::newRow("8 of two code units") << u"😀😀😀😀😀😀😀😀"_s << true;
        QTest::newRow("7 with an accent apart") << u"e\u0301123456"_s << false;
        QTest::newRow("none") << QString() << false;
    }

    void eightCharactersAreEnoughAndSevenAreNot()
    {
        QFETCH(const QString, draft);
        QFETCH(const bool, isEnough);
        show(three);
        m_services->wifi.joins.willHold();
        m_section->setConnectPasswordDraft(draft);
        m_section->connectTo(u"A"_s);
        QCOMPARE(m_section->isPasswordLongEnough(), isEnough);
        QCOMPARE(m_services->wifi.joined.size(), isEnough ? 1 : 0);
        m_section->saveOnly(u"A"_s);
        QCOMPARE(m_services->keychain.saved.size(), isEnough ? 1 : 0);
        QCOMPARE(m_connected, isEnough ? 1 : 0);
        QCOMPARE(m_section->connectPasswordDraft(), isEnough ? QString() : draft);
    }

    void savingMarksTheNetworkWithoutAskingAgain()
    {
        show(three);
        m_section->toggle(u"A"_s);
        m_services->keychain.read.clear();
        m_section->setConnectPasswordDraft(u"12345678"_s);
        m_section->saveOnly(u"A"_s);
        QVERIFY(m_section->rows()[0].isSaved);
        QVERIFY(m_services->keychain.read.isEmpty());
        QCOMPARE(m_services->keychain.passwords.value(u"A"_s), u"12345678"_s);
    }

    void aSaveThatFailsIsToldAndKeepsTheDraft()
    {
        show(three);
        m_section->setConnectPasswordDraft(u"12345678"_s);
        m_services->keychain.failure = KeychainError::unexpectedItemFormat();
        m_section->saveOnly(u"A"_s);
        QCOMPARE(m_section->connectErrorMessage(),
                 u"Keychain item exists but is not a valid UTF-8 string."_s);
        QCOMPARE(m_section->connectPasswordDraft(), u"12345678"_s);
        QCOMPARE(m_connected, 0);
        m_services->keychain.failure.reset();
        m_section->saveOnly(u"A"_s);
        QCOMPARE(m_section->connectErrorMessage(), std::nullopt);
    }

    void aJoinKeepsThePasswordThatItWasMadeWith()
    {
        show(three);
        m_section->toggle(u"A"_s);
        hold(u"A"_s, u"12345678"_s);
        QVERIFY(m_section->connecting());
        m_section->setConnectPasswordDraft(u"another one"_s);
        endJoin();
        QVERIFY(!m_section->connecting());
        QCOMPARE(m_services->keychain.passwords.value(u"A"_s), u"12345678"_s);
        QCOMPARE(m_connected, 1);
        QVERIFY(m_section->rows()[0].isSaved);
        const FakeWifiService::Joining asked{.ssid = u"A"_s, .password = u"12345678"_s};
        QCOMPARE(m_services->wifi.joined, {asked});
    }

    void aJoinThatFailsSaysSoAndStoresNothing()
    {
        show(three);
        m_section->toggle(u"A"_s);
        hold(u"A"_s, u"12345678"_s);
        failJoin();
        QCOMPARE(m_section->connectErrorMessage(), cannotConnect);
        QVERIFY(!m_section->connecting());
        QVERIFY(m_services->keychain.saved.isEmpty());
        QCOMPARE(m_connected, 0);
        // The next try begins without it.
        m_services->wifi.joins.willHold();
        m_section->connectTo(u"A"_s);
        QCOMPARE(m_section->connectErrorMessage(), std::nullopt);
    }

    void aKeychainThatFailsAfterAJoinIsSilent()
    {
        show(three);
        m_section->toggle(u"A"_s);
        hold(u"A"_s, u"12345678"_s);
        m_services->keychain.failure = KeychainError::unexpectedItemFormat();
        endJoin();
        QCOMPARE(m_section->connectErrorMessage(), std::nullopt);
        QCOMPARE(m_connected, 1);
        QVERIFY(!m_section->rows()[0].isSaved);
    }

    void withoutANameThereIsNoJoin()
    {
        show({});
        m_section->setConnectPasswordDraft(u"12345678"_s);
        m_section->connectTo(u""_s);
        QVERIFY(m_services->wifi.joined.isEmpty());
        QVERIFY(!m_section->connecting());
    }

    void thereIsOneJoinAtATime()
    {
        show(three);
        hold(u"A"_s, u"12345678"_s);
        m_section->connectTo(u"A"_s);
        m_section->toggle(u"B"_s);
        m_section->setConnectPasswordDraft(u"87654321"_s);
        m_section->connectTo(u"B"_s);
        QCOMPARE(m_services->wifi.joined.size(), 1);
        QCOMPARE(m_section->connectingSSID(), u"A"_s);
    }

    void aJoinThatFailsSaysNothingInAnotherRow()
    {
        show(three);
        m_section->toggle(u"A"_s);
        hold(u"A"_s, u"12345678"_s);
        m_section->toggle(u"B"_s);
        m_section->setConnectPasswordDraft(u"87654321"_s);
        failJoin();
        QCOMPARE(m_section->connectErrorMessage(), std::nullopt);
        QCOMPARE(m_section->connectPasswordDraft(), u"87654321"_s);
        QVERIFY(!m_section->connecting());
    }

    void aJoinThatSucceedsBehindAnotherRowIsKeptForItsOwn()
    {
        show(three);
        m_section->toggle(u"A"_s);
        hold(u"A"_s, u"12345678"_s);
        m_section->toggle(u"B"_s);
        m_section->setConnectPasswordDraft(u"87654321"_s);
        endJoin();
        QCOMPARE(m_services->keychain.saved, QStringList({u"A"_s}));
        QCOMPARE(m_section->connectPasswordDraft(), u"87654321"_s);
    }

    void aJoinThatFailsAfterTheTypedNameChangedSaysNothing()
    {
        show({});
        m_section->setManualSSIDDraft(u"Typed"_s);
        hold(u"Typed"_s, u"12345678"_s);
        m_section->setManualSSIDDraft(u"Typed too"_s);
        failJoin();
        QCOMPARE(m_section->connectErrorMessage(), std::nullopt);
    }

    void aJoinGoesOnWhileTheSectionIsHidden()
    {
        show(three);
        m_section->toggle(u"A"_s);
        hold(u"A"_s, u"12345678"_s);
        m_section->disappear();
        endJoin();
        QCOMPARE(m_services->keychain.saved, QStringList({u"A"_s}));
    }

    void theSystemsPasswordReplacesTheDraft()
    {
        show(three);
        m_section->toggle(u"A"_s);
        m_section->setConnectPasswordDraft(u"typed"_s);
        m_services->reader.passwords.willSucceed(u"from the system"_s);
        m_section->fillFromSystem(u"A"_s);
        QVERIFY(m_section->autofillAttempted());
        settle();
        QCOMPARE(m_section->connectPasswordDraft(), u"from the system"_s);
        QCOMPARE(m_services->reader.askedFor, QStringList({u"A"_s}));
    }

    void aSystemWithoutOneChangesNothing()
    {
        show(three);
        m_section->setConnectPasswordDraft(u"typed"_s);
        m_services->reader.passwords.willSucceed(std::nullopt);
        m_section->fillFromSystem(u"A"_s);
        settle();
        QCOMPARE(m_section->connectPasswordDraft(), u"typed"_s);
        QVERIFY(m_section->autofillAttempted());
    }

    void theSystemIsNotAskedTwiceAtOnce()
    {
        show(three);
        m_services->reader.passwords.willHold();
        m_section->fillFromSystem(u"A"_s);
        m_section->fillFromSystem(u"A"_s);
        QCOMPARE(m_services->reader.askedFor.size(), 1);
        answerFill(std::nullopt);
        m_services->reader.passwords.willSucceed(u"now"_s);
        m_section->fillFromSystem(u"A"_s);
        settle();
        QCOMPARE(m_section->connectPasswordDraft(), u"now"_s);
    }

    void aSystemPasswordNeverLandsInAnotherRow_data()
    {
        QTest::addColumn<QStringList>("toggles");
        QTest::newRow("closed") << QStringList({u"A"_s});
        QTest::newRow("another one open") << QStringList({u"B"_s});
        QTest::newRow("closed and open again") << QStringList({u"A"_s, u"A"_s});
        QTest::newRow("other") << QStringList({other});
    }

    void aSystemPasswordNeverLandsInAnotherRow()
    {
        QFETCH(const QStringList, toggles);
        show(three);
        m_section->toggle(u"A"_s);
        m_services->reader.passwords.willHold();
        m_section->fillFromSystem(u"A"_s);
        for (const QString &row : toggles)
            m_section->toggle(row);
        answerFill(u"the password of A"_s);
        QCOMPARE(m_section->connectPasswordDraft(), QString());
    }

    void aSystemPasswordNeverLandsUnderAnotherTypedName()
    {
        show({});
        m_section->setManualSSIDDraft(u"Typed"_s);
        m_services->reader.passwords.willHold();
        m_section->fillFromSystem(u"Typed"_s);
        m_section->setManualSSIDDraft(u"Typed too"_s);
        answerFill(u"the password of Typed"_s);
        QCOMPARE(m_section->connectPasswordDraft(), QString());
    }

    void ofTwoNetworksTheLaterQuestionIsAnswered()
    {
        show(three);
        m_section->toggle(u"A"_s);
        m_services->reader.passwords.willHold();
        m_section->fillFromSystem(u"A"_s);
        m_section->toggle(u"B"_s);
        m_services->reader.passwords.willHold();
        m_section->fillFromSystem(u"B"_s);
        answerFill(u"the password of A"_s);
        QCOMPARE(m_section->connectPasswordDraft(), QString());
        answerFill(u"the password of B"_s);
        QCOMPARE(m_section->connectPasswordDraft(), u"the password of B"_s);
    }

    void theEyeReadsTheStoredPasswordAndClearsIt()
    {
        openSaved();
        m_section->toggleRevealStoredPassword(u"A"_s);
        QCOMPARE(m_section->revealedScannedPassword(), u"stored word"_s);
        m_section->toggleRevealStoredPassword(u"A"_s);
        QCOMPARE(m_section->revealedScannedPassword(), std::nullopt);
    }

    void aStoredPasswordThatIsGoneIsNoLongerSaved()
    {
        openSaved();
        m_services->keychain.passwords.clear();
        m_section->toggleRevealStoredPassword(u"A"_s);
        QCOMPARE(m_section->revealedScannedPassword(), std::nullopt);
        QVERIFY(!m_section->rows()[0].isSaved);
    }

    void copyingPutsTheStoredPasswordOnThePasteboard()
    {
        openSaved();
        m_section->copyStoredPassword(u"A"_s);
        QCOMPARE(m_services->pasteboard.calls, QStringList({u"clear"_s, u"secret"_s}));
        QCOMPARE(m_services->pasteboard.secret, u"stored word"_s);
        QVERIFY(m_section->copiedScanned());
        int changes = 0;
        connect(&*m_section, &WifiScanSection::changed, this, [&changes] { ++changes; });
        QVERIFY(QTest::qWaitFor([this] { return !m_section->copiedScanned(); }));
        QCOMPARE(changes, 1);
    }

    void copiedStaysForTwoSecondsUnlessToldOtherwise()
    {
        const WifiScanSection::Inputs inputs{.keychainStore = m_services->keychain,
                                             .systemPasswordReader = m_services->reader,
                                             .wifiService = m_services->wifi,
                                             .pasteboard = m_services->pasteboard};
        QVERIFY(inputs.copiedInterval == 2s);
    }

    void whatCannotBeReadLeavesThePasteboardAlone()
    {
        openSaved();
        m_services->keychain.failure = KeychainError::unexpectedItemFormat();
        m_section->copyStoredPassword(u"A"_s);
        QVERIFY(m_services->pasteboard.calls.isEmpty());
        QVERIFY(!m_section->copiedScanned());
    }

    void theKeychainIsAskedOnceANetworkAndScan()
    {
        show(three);
        for (int paint = 0; paint < 3; ++paint)
            static_cast<void>(m_section->rows());
        m_section->toggle(u"A"_s);
        m_section->setCurrentNetwork(u"Mine"_s, std::nullopt);
        m_section->setCurrentNetwork(u"Mine"_s, WifiSignal(-50));
        QCOMPARE(m_services->keychain.read, QStringList({u"A"_s, u"B"_s, u"C"_s, u"Mine"_s}));
        m_services->keychain.read.clear();
        m_services->keychain.passwords.insert(u"B"_s, u"stored elsewhere"_s);
        showAgain(three);
        QCOMPARE(m_services->keychain.read.size(), 4);
        QVERIFY(m_section->rows()[1].isSaved);
    }

    void aKeychainThatIsLockedIsAskedOnceAScan()
    {
        using Operation = KeychainError::Operation;
        m_services->keychain.failure =
            KeychainError::unhandledStatus(KeychainStatus::Code(-25308), Operation::Read);
        show(three);
        m_section->setCurrentNetwork(u"Mine"_s, std::nullopt);
        QCOMPARE(m_services->keychain.read, QStringList({u"A"_s}));
        QVERIFY(!m_section->rows()[0].isSaved);
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

private:
    static void settle()
    {
        for (int turn = 0; turn < 12; ++turn)
            turnEventLoop();
    }
    /// Posted events alone, so that no timer fires.
    static void settleBriefly()
    {
        for (int turn = 0; turn < 12; ++turn)
            QCoreApplication::sendPostedEvents();
    }

    void show(const Networks &networks)
    {
        m_services->wifi.scans.willSucceed(networks);
        m_section->appear();
        settle();
    }
    void showAgain(const Networks &networks)
    {
        m_section->disappear();
        show(networks);
    }
    void openSaved()
    {
        m_services->keychain.passwords.insert(u"A"_s, u"stored word"_s);
        show(three);
        m_section->toggle(u"A"_s);
        QVERIFY(m_section->rows()[0].isSaved);
    }
    void hold(const QString &ssid, const QString &password)
    {
        m_services->wifi.joins.willHold();
        m_section->setConnectPasswordDraft(password);
        m_section->connectTo(ssid);
    }
    void endJoin()
    {
        m_services->wifi.joins.willSucceed({});
        m_services->wifi.joins.release();
        settle();
    }
    void failJoin()
    {
        m_services->wifi.joins.willFail(AppError::network(u"refused"_s));
        m_services->wifi.joins.release();
        settle();
    }
    void answerFill(const std::optional<QString> &password)
    {
        m_services->reader.passwords.willSucceed(password);
        m_services->reader.passwords.release();
        settle();
    }

    std::optional<Services> m_services;
    std::optional<WifiScanSection> m_section;
    int m_connected = 0;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::WifiScanSectionTest)
#include "WifiScanSectionTest.moc"
