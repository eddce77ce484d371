#include "Core/Support/AppError.h"
#include "Tests/Features/CheckIn/Wifi/WifiSectionCase.h"

#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

/// Which row is open, and what a closing row forgets.
class WifiRowTest final : public WifiSectionCase
{
    Q_OBJECT

private slots:
    void theHintIsForAListWithoutAnOpenRow()
    {
        show(three);
        QVERIFY(m_section->showsHint());
        m_section->toggle(u"A"_s);
        QVERIFY(!m_section->showsHint());
        QVERIFY(!m_section->isOtherOpen());
        m_section->toggleOther();
        QVERIFY(!m_section->showsHint());
        QVERIFY(m_section->isOtherOpen());
        QVERIFY(!rows()[0].isOpen);
        m_section->toggleOther();
        QVERIFY(m_section->showsHint());
    }

    void hidingLeavesNoPasswordInClear()
    {
        openSaved();
        m_section->toggleRevealStoredPassword(u"A"_s);
        m_section->toggleRevealConnectPassword();
        m_section->disappear();
        QVERIFY(!m_section->storedRow().isRevealed);
        QVERIFY(!m_section->connectRow().revealConnectPassword);
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
        QCOMPARE(m_section->connectRow().connectErrorMessage, cannotConnect);
        m_section->toggle(u"B"_s);
        QCOMPARE(m_section->expanded(), u"B"_s);
        QCOMPARE(m_section->connectRow().connectPasswordDraft, QString());
        QVERIFY(!m_section->connectRow().revealConnectPassword);
        QCOMPARE(m_section->connectRow().connectErrorMessage, QString());
        QVERIFY(!m_section->storedRow().isRevealed);
        QVERIFY(!m_section->storedRow().copiedScanned);
        m_section->setConnectPasswordDraft(u"12345678"_s);
        m_section->toggle(u"B"_s);
        QCOMPARE(m_section->expanded(), std::nullopt);
        QCOMPARE(m_section->connectRow().connectPasswordDraft, QString());
    }

    void aRowThatIsNoLongerThereCloses()
    {
        show(three);
        m_section->toggle(u"A"_s);
        m_section->setConnectPasswordDraft(u"12345678"_s);
        showAgain({{u"B"_s, -70}});
        QCOMPARE(m_section->expanded(), std::nullopt);
        QCOMPARE(m_section->connectRow().connectPasswordDraft, QString());
    }

    void aRowThatIsStillThereKeepsWhatWasTyped()
    {
        show(three);
        m_section->toggle(u"A"_s);
        m_section->setConnectPasswordDraft(u"12345678"_s);
        showAgain({{u"A"_s, -70}});
        m_section->setCurrentNetwork(u"Mine"_s, WifiSignal(-50));
        QCOMPARE(m_section->expanded(), u"A"_s);
        QCOMPARE(m_section->connectRow().connectPasswordDraft, u"12345678"_s);
        QCOMPARE(rows().size(), 2);
    }

    void thePasswordIsForTheOpenRow_data()
    {
        QTest::addColumn<QString>("row");
        QTest::addColumn<QString>("target");
        QTest::addColumn<QString>("submitTitle");
        QTest::newRow("the joined network") << u"A"_s << u"A"_s << u"Save"_s;
        QTest::newRow("another") << u"B"_s << u"B"_s << u"Save & Connect"_s;
        QTest::newRow("one that is typed") << other << u"Typed"_s << u"Save & Connect"_s;
    }

    void thePasswordIsForTheOpenRow()
    {
        QFETCH(const QString, row);
        QFETCH(const QString, target);
        QFETCH(const QString, submitTitle);
        show(three);
        m_section->setCurrentNetwork(u"A"_s, std::nullopt);
        m_section->setManualSSIDDraft(u"Typed"_s);
        m_section->toggle(row);
        QCOMPARE(m_section->connectRow().ssid, target);
        QCOMPARE(m_section->connectRow().prompt, u"Enter the password for "_s + target +
                                                     u" — saved to your Keychain for next time."_s);
        QCOMPARE(m_section->connectRow().submitTitle, submitTitle);
    }

    void withoutAListThePasswordIsForTheTypedName()
    {
        show({});
        m_section->setManualSSIDDraft(u"Typed"_s);
        QCOMPARE(m_section->connectRow().ssid, u"Typed"_s);
        QCOMPARE(m_section->connectRow().submitTitle, u"Save & Connect"_s);
    }

    void aNetworkOfTheReservedNameHasNoOpenRow()
    {
        show({{other, -50}});
        m_section->toggle(other);
        QVERIFY(!rows()[0].isOpen);
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::WifiRowTest)
#include "WifiRowTest.moc"
