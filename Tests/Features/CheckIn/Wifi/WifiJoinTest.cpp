#include "Core/Keychain/KeychainError.h"
#include "Tests/Features/CheckIn/Wifi/WifiSectionCase.h"

#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

/// Joining a network and storing its password.
class WifiJoinTest final : public WifiSectionCase
{
    Q_OBJECT

private slots:
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
        m_section->toggle(u"A"_s);
        m_section->setConnectPasswordDraft(draft);
        QCOMPARE(m_section->connectRow().canSubmit, isEnough);
        m_section->connectTo(u"A"_s);
        QCOMPARE(m_services->wifi.joined.size(), isEnough ? 1 : 0);
        m_section->saveOnly(u"A"_s);
        QCOMPARE(m_services->keychain.saved.size(), isEnough ? 1 : 0);
        QCOMPARE(m_connected, isEnough ? 1 : 0);
        QCOMPARE(m_section->connectRow().connectPasswordDraft, isEnough ? QString() : draft);
    }

    void savingMarksTheNetworkWithoutAskingAgain()
    {
        show(three);
        m_section->toggle(u"A"_s);
        m_services->keychain.read.clear();
        m_section->setConnectPasswordDraft(u"12345678"_s);
        m_section->saveOnly(u"A"_s);
        QVERIFY(rows()[0].isSaved);
        QVERIFY(m_services->keychain.read.isEmpty());
        QCOMPARE(m_services->keychain.passwords.value(u"A"_s), u"12345678"_s);
    }

    void aSaveThatFailsIsToldAndKeepsTheDraft()
    {
        show(three);
        m_section->setConnectPasswordDraft(u"12345678"_s);
        m_services->keychain.failure = KeychainError::unexpectedItemFormat();
        m_section->saveOnly(u"A"_s);
        QCOMPARE(m_section->connectRow().connectErrorMessage,
                 u"Keychain item exists but is not a valid UTF-8 string."_s);
        QCOMPARE(m_section->connectRow().connectPasswordDraft, u"12345678"_s);
        QCOMPARE(m_connected, 0);
        m_services->keychain.failure.reset();
        m_section->saveOnly(u"A"_s);
        QCOMPARE(m_section->connectRow().connectErrorMessage, QString());
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
        QVERIFY(rows()[0].isSaved);
        const FakeWifiService::Joining asked{.ssid = u"A"_s, .password = u"12345678"_s};
        QCOMPARE(m_services->wifi.joined, {asked});
    }

    void aJoinThatFailsSaysSoAndStoresNothing()
    {
        show(three);
        m_section->toggle(u"A"_s);
        hold(u"A"_s, u"12345678"_s);
        failJoin();
        QCOMPARE(m_section->connectRow().connectErrorMessage, cannotConnect);
        QVERIFY(!m_section->connecting());
        QVERIFY(m_services->keychain.saved.isEmpty());
        QCOMPARE(m_connected, 0);
        // The next try starts without it.
        m_services->wifi.joins.willHold();
        m_section->connectTo(u"A"_s);
        QCOMPARE(m_section->connectRow().connectErrorMessage, QString());
    }

    void aKeychainThatFailsAfterAJoinIsSilent()
    {
        show(three);
        m_section->toggle(u"A"_s);
        hold(u"A"_s, u"12345678"_s);
        m_services->keychain.failure = KeychainError::unexpectedItemFormat();
        endJoin();
        QCOMPARE(m_section->connectRow().connectErrorMessage, QString());
        QCOMPARE(m_connected, 1);
        QVERIFY(!rows()[0].isSaved);
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
        QCOMPARE(m_services->wifi.joined.first().ssid, u"A"_s);
    }

    void onlyTheJoinedRowShowsThatItIsConnecting()
    {
        show(three);
        m_section->toggle(u"A"_s);
        hold(u"A"_s, u"12345678"_s);
        QVERIFY(m_section->connectRow().connecting);
        m_section->toggle(u"B"_s);
        m_section->setConnectPasswordDraft(u"12345678"_s);
        QVERIFY(m_section->connecting());
        QVERIFY(!m_section->connectRow().connecting);
        QVERIFY(!m_section->connectRow().canSubmit);
    }

    void submittingTheJoinedNetworkOnlySaves()
    {
        m_section->setCurrentNetwork(u"A"_s, std::nullopt);
        m_services->wifi.ssid = u"A"_s;
        show(three);
        m_section->setConnectPasswordDraft(u"12345678"_s);
        m_section->submit();
        QCOMPARE(m_services->keychain.saved, QStringList({u"A"_s}));
        QVERIFY(m_services->wifi.joined.isEmpty());
        QCOMPARE(m_connected, 1);
    }

    void submittingAnotherNetworkJoinsItAndMarksIt()
    {
        show(three);
        m_section->toggle(u"A"_s);
        m_section->setConnectPasswordDraft(u"12345678"_s);
        m_services->wifi.joins.willHold();
        m_section->submit();
        QVERIFY(m_section->connectRow().connecting);
        QVERIFY(!m_section->connectRow().canSubmit);
        m_services->wifi.ssid = u"A"_s;
        endJoin();
        QVERIFY(!m_section->connectRow().connecting);
        QVERIFY(rows()[0].isConnected);
        QVERIFY(rows()[0].isSaved);
        QCOMPARE(m_connected, 1);
    }

    void theButtonWaitsForANameAndEightCharacters()
    {
        show({});
        m_section->setManualSSIDDraft(u"Typed"_s);
        m_section->setConnectPasswordDraft(u"1234567"_s);
        QVERIFY(!m_section->connectRow().canSubmit);
        m_section->setConnectPasswordDraft(u"12345678"_s);
        QVERIFY(m_section->connectRow().canSubmit);
        m_section->setManualSSIDDraft(QString());
        QVERIFY(!m_section->connectRow().canSubmit);
    }

    void aJoinThatFailsSaysNothingInAnotherRow()
    {
        show(three);
        m_section->toggle(u"A"_s);
        hold(u"A"_s, u"12345678"_s);
        m_section->toggle(u"B"_s);
        m_section->setConnectPasswordDraft(u"87654321"_s);
        failJoin();
        QCOMPARE(m_section->connectRow().connectErrorMessage, QString());
        QCOMPARE(m_section->connectRow().connectPasswordDraft, u"87654321"_s);
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
        QCOMPARE(m_section->connectRow().connectPasswordDraft, u"87654321"_s);
    }

    void aJoinThatFailsAfterTheTypedNameChangedSaysNothing()
    {
        show({});
        m_section->setManualSSIDDraft(u"Typed"_s);
        hold(u"Typed"_s, u"12345678"_s);
        m_section->setManualSSIDDraft(u"Typed too"_s);
        failJoin();
        QCOMPARE(m_section->connectRow().connectErrorMessage, QString());
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
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::WifiJoinTest)
#include "WifiJoinTest.moc"
