#include "Features/CheckIn/Wifi/WifiScreen.h"

#include "Core/Keychain/FakeKeychainStore.h"
#include "Core/Support/AppError.h"
#include "Platform/Pasteboard/FakePasteboard.h"
#include "Services/Wifi/FakeWifiService.h"
#include "Services/Wifi/Passwords/FakeSystemWifiPasswordReader.h"
#include "Tests/Support/RunTask.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

using State = WifiScreen::State;

struct Services
{
    FakeKeychainStore keychain;
    FakeSystemWifiPasswordReader reader;
    FakeWifiService wifi;
    FakePasteboard pasteboard;
};

} // namespace

class WifiScreenTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_screen.reset();
        m_services.emplace();
        m_connected = 0;
        m_screen.emplace(WifiScanSection::Inputs{.keychainStore = m_services->keychain,
                                                 .systemPasswordReader = m_services->reader,
                                                 .wifiService = m_services->wifi,
                                                 .pasteboard = m_services->pasteboard,
                                                 .onConnected = [this] { ++m_connected; }});
    }
    void cleanup() { m_screen.reset(); }

    void theHeaderSaysHowFarTheScanIs()
    {
        QCOMPARE(m_screen->state(), State::Scanning);
        QCOMPARE(m_screen->headerText(), u"Scanning…"_s);
        QVERIFY(!m_screen->showsHint());
        show({{u"A"_s, -65}, {u"B"_s, -75}, {u"C"_s, -85}});
        QCOMPARE(m_screen->state(), State::Loaded);
        QCOMPARE(m_screen->headerText(), u"3 found"_s);
        QCOMPARE(m_screen->rows()->rowCount(), 3);
    }

    void nothingFoundIsUnavailable()
    {
        show({});
        QCOMPARE(m_screen->state(), State::Unavailable);
        QCOMPARE(m_screen->headerText(), u"0 found"_s);
        QVERIFY(!m_screen->showsHint());
    }

    void theJoinedNetworkAloneIsOneFound()
    {
        m_screen->setCurrentNetwork(u"Mine"_s, std::nullopt);
        show({});
        QCOMPARE(m_screen->headerText(), u"1 found"_s);
        QCOMPARE(m_screen->state(), State::Loaded);
    }

    void theHintIsForAListWithoutAnOpenRow()
    {
        show({{u"A"_s, -65}});
        QVERIFY(m_screen->showsHint());
        m_screen->toggle(u"A"_s);
        QVERIFY(!m_screen->showsHint());
        QVERIFY(!m_screen->isOtherOpen());
        m_screen->toggleOther();
        QVERIFY(!m_screen->showsHint());
        QVERIFY(m_screen->isOtherOpen());
        m_screen->toggleOther();
        QVERIFY(m_screen->showsHint());
    }

    void theFieldIsForTheOpenRow()
    {
        m_screen->setCurrentNetwork(u"A"_s, std::nullopt);
        show({{u"A"_s, -65}, {u"<b>B</b>"_s, -75}});
        QCOMPARE(m_screen->submitTitle(), u"Save"_s);
        m_screen->toggle(u"<b>B</b>"_s);
        QCOMPARE(m_screen->submitTitle(), u"Save & Connect"_s);
        QCOMPARE(m_screen->prompt(), u"Enter the password for <b>B</b> — saved to your Keychain"
                                     " for next time."_s);
        m_screen->setNetworkName(u"Typed"_s);
        m_screen->toggleOther();
        QCOMPARE(m_screen->submitTitle(), u"Save & Connect"_s);
        QCOMPARE(m_screen->prompt(),
                 u"Enter the password for Typed — saved to your Keychain for next time."_s);
    }

    void submittingTheJoinedNetworkOnlySaves()
    {
        m_screen->setCurrentNetwork(u"A"_s, std::nullopt);
        m_services->wifi.ssid = u"A"_s;
        show({{u"A"_s, -65}});
        m_screen->setPassword(u"12345678"_s);
        m_screen->submit();
        QCOMPARE(m_services->keychain.saved, QStringList({u"A"_s}));
        QVERIFY(m_services->wifi.joined.isEmpty());
        QCOMPARE(m_connected, 1);
    }

    void submittingAnotherNetworkJoinsItAndMarksIt()
    {
        show({{u"A"_s, -65}});
        m_screen->toggle(u"A"_s);
        m_screen->setPassword(u"12345678"_s);
        m_services->wifi.joins.willHold();
        m_screen->submit();
        QVERIFY(m_screen->isConnecting());
        QVERIFY(!m_screen->canSubmit());
        m_services->wifi.ssid = u"A"_s;
        m_services->wifi.joins.willSucceed({});
        m_services->wifi.joins.release();
        settle();
        QVERIFY(!m_screen->isConnecting());
        QVERIFY(row(0, "isConnected").toBool());
        QVERIFY(row(0, "isSaved").toBool());
        QCOMPARE(m_connected, 1);
    }

    void onlyTheJoinedRowShowsThatItIsConnecting()
    {
        show({{u"A"_s, -65}, {u"B"_s, -75}});
        m_screen->toggle(u"A"_s);
        m_screen->setPassword(u"12345678"_s);
        m_services->wifi.joins.willHold();
        m_screen->submit();
        m_screen->toggle(u"B"_s);
        m_screen->setPassword(u"12345678"_s);
        QVERIFY(!m_screen->isConnecting());
        QVERIFY(!m_screen->canSubmit());
    }

    void theButtonWaitsForANameAndEightCharacters()
    {
        show({});
        m_screen->setNetworkName(u"Typed"_s);
        m_screen->setPassword(u"1234567"_s);
        QVERIFY(!m_screen->canSubmit());
        m_screen->setPassword(u"12345678"_s);
        QVERIFY(m_screen->canSubmit());
        m_screen->setNetworkName(QString());
        QVERIFY(!m_screen->canSubmit());
    }

    void aFailedJoinIsSaid()
    {
        show({{u"A"_s, -65}});
        m_screen->toggle(u"A"_s);
        m_screen->setPassword(u"12345678"_s);
        m_services->wifi.joins.willFail(AppError::network(u"refused"_s));
        m_screen->submit();
        settle();
        QCOMPARE(m_screen->errorText(), u"Couldn't connect — check the password."_s);
    }

    void theStoredPasswordIsTenBulletsUntilRevealed()
    {
        m_services->keychain.passwords.insert(u"A"_s, u"stored"_s);
        show({{u"A"_s, -65}});
        m_screen->toggle(u"A"_s);
        QCOMPARE(m_screen->storedText(), u"••••••••••"_s);
        m_screen->toggleStored();
        QVERIFY(m_screen->isStoredRevealed());
        QCOMPARE(m_screen->storedText(), u"stored"_s);
        m_screen->toggleStored();
        QCOMPARE(m_screen->storedText(), u"••••••••••"_s);
    }

    void copyingSaysSo()
    {
        m_services->keychain.passwords.insert(u"A"_s, u"stored"_s);
        show({{u"A"_s, -65}});
        m_screen->toggle(u"A"_s);
        QCOMPARE(m_screen->copyTitle(), u"Copy"_s);
        QCOMPARE(m_screen->copySymbol(), u"doc.on.doc"_s);
        m_screen->copyStored();
        QCOMPARE(m_screen->copyTitle(), u"Copied!"_s);
        QCOMPARE(m_screen->copySymbol(), u"checkmark"_s);
        QCOMPARE(m_services->pasteboard.secret, u"stored"_s);
    }

    void theSystemFillsTheOpenRow()
    {
        show({{u"A"_s, -65}});
        m_screen->toggle(u"A"_s);
        m_services->reader.passwords.willSucceed(u"from the system"_s);
        m_screen->fillFromSystem();
        settle();
        QCOMPARE(m_services->reader.askedFor, QStringList({u"A"_s}));
        QCOMPARE(m_screen->password(), u"from the system"_s);
        QVERIFY(!m_screen->isPasswordRevealed());
        m_screen->togglePassword();
        QVERIFY(m_screen->isPasswordRevealed());
    }

    void rowsAreChangedInPlace()
    {
        show({{u"A"_s, -65}, {u"B"_s, -75}});
        const QSignalSpy resets(m_screen->rows(), &QAbstractItemModel::modelReset);
        const QSignalSpy changes(m_screen->rows(), &QAbstractItemModel::dataChanged);
        const QSignalSpy removals(m_screen->rows(), &QAbstractItemModel::rowsRemoved);
        m_screen->toggle(u"B"_s);
        m_screen->setPassword(u"typing"_s);
        QCOMPARE(changes.count(), 1);
        QCOMPARE(resets.count() + removals.count(), 0);
        QVERIFY(row(1, "isOpen").toBool());
    }

private:
    static void settle()
    {
        for (int turn = 0; turn < 12; ++turn)
            turnEventLoop();
    }
    void show(const QList<WifiNetwork> &networks)
    {
        m_services->wifi.scans.willSucceed(networks);
        m_screen->appear();
        settle();
    }
    [[nodiscard]] QVariant row(int index, const QByteArray &role)
    {
        const auto *rows = m_screen->rows();
        return rows->index(index, 0).data(rows->roleNames().key(role));
    }

    std::optional<Services> m_services;
    std::optional<WifiScreen> m_screen;
    int m_connected = 0;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::WifiScreenTest)
#include "WifiScreenTest.moc"
