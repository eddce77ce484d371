#include "Core/Support/AppError.h"
#include "Tests/Features/CheckIn/Wifi/WifiSectionCase.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

/// Which row is open, and what a closing row forgets.
class WifiRowTest final : public WifiSectionCase
{
    Q_OBJECT

private slots:
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
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::WifiRowTest)
#include "WifiRowTest.moc"
