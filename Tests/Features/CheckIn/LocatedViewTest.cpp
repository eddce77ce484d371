#include "Features/CheckIn/LocatedScreen.h"
#include "Tests/Features/MenuBar/Loop/LoopWorld.h"
#include "Tests/Features/MenuBar/Panel/PanelOnScreen.h"
#include "Tests/Support/Patience.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QPoint>
#include <QPointF>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QSet>
#include <QVariant>
#include <QWheelEvent>

#include <chrono>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

/// The visit form in the panel, as a user works with it.
class LocatedViewTest final : public QObject
{
    Q_OBJECT

private slots:
    static void initTestCase() { QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); }
    void init()
    {
        QuickTest::failOnWarnings();
        m_panel.emplace();
        world().willFind(LoopWorld::found());
        world().willHear({{u"A"_s, -65}, {u"B"_s, -75}, {u"C"_s, -85}});
        m_panel->open();
    }
    void cleanup() { m_panel.reset(); }

    void changeOpensThePicker()
    {
        QVERIFY(!picker());
        m_panel->press(u"Change"_s);
        QVERIFY(picker());
        QVERIFY(m_panel->text(u"Choose a café"_s));
        QVERIFY(m_panel->text(u"42m"_s));
        QVERIFY(m_panel->text(u"80m"_s));
        QVERIFY(!m_panel->control(u"Check In"_s));
    }

    void escapeClosesThePickerAndThenThePanel()
    {
        m_panel->press(u"Change"_s);
        m_panel->key(Qt::Key_Escape);
        QVERIFY(!picker());
        QVERIFY(m_panel->window().isVisible());
        m_panel->key(Qt::Key_Escape);
        QVERIFY(!m_panel->window().isVisible());
    }

    void cancelOnlyClosesThePicker()
    {
        m_panel->press(u"Change"_s);
        m_panel->press(u"Cancel"_s);
        QVERIFY(!picker());
        QVERIFY(m_panel->text(u"Near"_s));
    }

    void choosingACafeClosesThePicker()
    {
        m_panel->press(u"Change"_s);
        m_panel->press(u"Far"_s);
        QVERIFY(!picker());
        QVERIFY(m_panel->text(u"Far"_s));
        QVERIFY(!m_panel->text(u"Near"_s));
    }

    void aCafeWithoutAnAlternativeCannotBeChanged()
    {
        world().willFind({LoopWorld::cafe(u"Only"_s, 5)});
        world().loop.clock.instant += std::chrono::hours(1);
        reopen();
        QVERIFY(m_panel->text(u"Only"_s));
        QVERIFY(!m_panel->control(u"Change"_s));
    }

    void retryLocatesAgainWhereThereIsNoCafe()
    {
        m_panel.reset();
        m_panel.emplace();
        world().loop.willLocate();
        world().loop.places.calls.willSucceed({});
        world().willHear({});
        m_panel->open();
        QVERIFY(m_panel->text(u"Couldn't detect café"_s));
        QVERIFY(m_panel->text(u"Check your connection, then retry."_s));
        world().willFind(LoopWorld::found());
        world().willHear({});
        m_panel->press(u"Retry"_s);
        QVERIFY(m_panel->text(u"Near"_s));
    }

    void theWheelBringsTheEndOfTheFormIntoView()
    {
        QQuickItem *last = m_panel->control(u"Other network…"_s);
        QVERIFY(!m_panel->isInSight(last));
        const QPoint down(0, -120);
        for (int notch = 0; notch < 20; ++notch)
            wheel(down, notch);
        QTRY_VERIFY(m_panel->isInSight(last));
    }

    void tabBringsEachControlIntoView()
    {
        QSet<QQuickItem *> visited;
        for (;;) {
            m_panel->key(Qt::Key_Tab);
            QQuickItem *focused = m_panel->window().activeFocusItem();
            if (visited.contains(focused))
                break;
            visited.insert(focused);
            QVERIFY2(m_panel->isInSight(focused), focused->metaObject()->className());
        }
        QVERIFY(visited.contains(m_panel->control(u"Other network…"_s)));
        QVERIFY(visited.contains(m_panel->control(u"Check In"_s)));
        QVERIFY(visited.contains(m_panel->control(u"Quit Quorvel"_s)));
    }

    void theButtonChecksInAndSaysSo()
    {
        QVERIFY(m_panel->isInSight(m_panel->control(u"Check In"_s)));
        m_panel->press(u"Check In"_s);
        QCOMPARE(world().repository.visits.size(), 1U);
        QVERIFY(m_panel->isInSight(m_panel->control(u"Checked in!"_s)));
        QVERIFY(m_panel->text(u"Already checked in today at this café."_s));
    }

    void aFailedSaveIsSaidAndTheButtonStays()
    {
        world().repository.failing = {u"save"_s};
        world().repository.failure = u"Disk full."_s;
        m_panel->press(u"Check In"_s);
        QVERIFY(m_panel->isInSight(m_panel->text(u"Network error: Disk full."_s)));
        QVERIFY(m_panel->control(u"Check In"_s)->isEnabled());
    }

    void starsAreGivenWithTheKeyboard()
    {
        const auto score = [this] {
            return m_panel->control(u"Noise level"_s)->property("value").toInt();
        };
        QQuickItem *stars = QuickTest::find(m_panel->control(u"Noise level"_s), "minimumValue", 1);
        stars->forceActiveFocus(Qt::TabFocusReason);
        m_panel->key(Qt::Key_Right);
        QCOMPARE(score(), 4);
        m_panel->key(Qt::Key_Left);
        m_panel->key(Qt::Key_Left);
        QCOMPARE(score(), 2);
    }

    void whatIsTypedOutlastsClosingThePanel()
    {
        m_panel->focus(u"Note"_s);
        m_panel->type("by the window");
        m_panel->press(u"A"_s);
        m_panel->focus(u"WiFi password"_s);
        m_panel->type("half a pass");
        world().loop.willLocate();
        reopen();
        QCOMPARE(m_panel->control(u"Note"_s)->property("text"), QVariant(u"by the window"_s));
        QCOMPARE(m_panel->control(u"WiFi password"_s)->property("text"),
                 QVariant(u"half a pass"_s));
    }

    void whoChoosesOrTypesIsNotInterrupted()
    {
        QVERIFY(!visit()->isInUse());
        m_panel->press(u"Change"_s);
        QVERIFY(visit()->isInUse());
        m_panel->press(u"Cancel"_s);
        QVERIFY(!visit()->isInUse());
        m_panel->focus(u"Note"_s);
        QVERIFY(visit()->isInUse());
        m_panel->press(u"A"_s);
        QVERIFY(!visit()->isInUse());
        m_panel->focus(u"WiFi password"_s);
        QVERIFY(visit()->isInUse());
    }

    void aVisitThatGivesWayIsNoLongerInUse()
    {
        m_panel->focus(u"Note"_s);
        LocatedScreen *screen = visit();
        world().loop.location.authorize(AuthorizationStatus::Denied);
        screen->retry();
        m_panel->settle();
        QVERIFY(!m_panel->view(u"LocatedView"_s));
        QVERIFY(!screen->isInUse());
    }

    void whatIsTypedOutlastsAnotherLook()
    {
        m_panel->focus(u"Note"_s);
        m_panel->type("by the window");
        m_panel->press(u"A"_s);
        world().willFind(LoopWorld::found());
        world().willHear({});
        visit()->retry();
        m_panel->settle();
        QCOMPARE(m_panel->control(u"Note"_s)->property("text"), QVariant(u"by the window"_s));
    }

    void whoseDataItIsIsToldBesideThePointer()
    {
        for (const auto &[view, credit] :
             {std::pair(u"CafeHeader"_s, u"© OpenStreetMap contributors"_s),
              std::pair(u"WeatherCard"_s, u"Weather by Open-Meteo"_s)}) {
            QVERIFY(!m_panel->text(credit));
            const QPointF beside(60, 20);
            QTest::mouseMove(&m_panel->window(), m_panel->view(view)->mapToScene(beside).toPoint());
            QTRY_VERIFY(m_panel->text(credit));
            QVERIFY(m_panel->isInSight(m_panel->text(credit)));
            QTest::mouseMove(&m_panel->window(), {170, 400});
            QTRY_VERIFY(!m_panel->text(credit));
        }
    }

    void theCreditTakesNoClickFromWhatItIsOver()
    {
        QuickTest::click(m_panel->control(u"Change"_s));
        m_panel->settle();
        QVERIFY(picker());
        QuickTest::click(m_panel->control(u"Far"_s));
        m_panel->settle();
        QVERIFY(!picker());
    }

    void whoseDataItIsIsToldToAssistiveTools()
    {
        const auto told = [this](const QString &text) {
            QQuickItem *item = m_panel->text(text);
            return QAccessible::queryAccessibleInterface(item)->text(QAccessible::Description);
        };
        QCOMPARE(told(u"Near"_s), u"© OpenStreetMap contributors"_s);
        QCOMPARE(told(u"23°"_s), u"Weather by Open-Meteo"_s);
        m_panel->press(u"Change"_s);
        QCOMPARE(told(u"Choose a café"_s), u"© OpenStreetMap contributors"_s);
    }

    void networksAreScannedOnlyWhileTheVisitIsShown()
    {
        QCOMPARE(world().loop.wifi.scanCount, 1);
        m_panel->panel.close();
        m_panel->settle();
        QCOMPARE(world().loop.wifi.scanCount, 1);
        world().loop.willLocate();
        reopen();
        QCOMPARE(world().loop.wifi.scanCount, 2);
    }

private:
    [[nodiscard]] PanelWorld &world() { return m_panel->world; }
    [[nodiscard]] LocatedScreen *visit()
    {
        return m_panel->view(u"LocatedView"_s)->property("screen").value<LocatedScreen *>();
    }
    [[nodiscard]] QQuickItem *picker() { return m_panel->view(u"CafePickerView"_s); }
    void reopen()
    {
        m_panel->panel.close();
        world().willHear({{u"A"_s, -65}, {u"B"_s, -75}, {u"C"_s, -85}});
        m_panel->open();
    }
    /// The form computes the scroll speed from the time between the notches.
    void wheel(QPoint delta, int notch)
    {
        constexpr int millisecondsApart = 50;
        const QPointF at(100, 200);
        QWheelEvent event(at, m_panel->window().mapToGlobal(at), {}, delta, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        event.setTimestamp(quint64(1000 + notch * millisecondsApart));
        QCoreApplication::sendEvent(&m_panel->window(), &event);
        m_panel->settle();
    }

    std::optional<PanelOnScreen> m_panel;
};

} // namespace quorvel::tests

QTEST_MAIN(quorvel::tests::LocatedViewTest)
#include "LocatedViewTest.moc"
