#include "Features/MenuBar/Panel/Window/MenuBarPanel.h"

#include "Core/DI/LoopServices.h"
#include "Core/DesignSystem/Theme/Theme.h"
#include "Features/MenuBar/Panel/Window/MenuBarScene.h"
#include "Platform/LoginItem/LoginItem.h"
#include "Platform/LoginItem/LoginItemError.h"
#include "Tests/Support/Patience.h"
#include "Tests/Support/QuickTest.h"
#include "Tests/Support/Services/QuietFacilities.h"

#include <QAccessible>
#include <QColor>
#include <QCursor>
#include <QFont>
#include <QPoint>
#include <QQmlEngine>
#include <QQuickView>
#include <QSGRendererInterface>
#include <QSignalSpy>
#include <QWindow>

#include <chrono>
#include <memory>
#include <optional>

using namespace quorvel;
using namespace Qt::StringLiterals;
using tests::patienceMilliseconds;
using namespace std::chrono_literals;

namespace {

constexpr QRect anchor(400, 0, 22, 22);

} // namespace

class MenuBarPanelTest final : public QObject
{
    Q_OBJECT

private slots:
    static void initTestCase() { QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); }

    void init()
    {
        QuickTest::failOnWarnings();
        m_system.emplace();
        m_services.emplace(m_system->facilities);
        m_scene.emplace(nullptr, m_services->roles(), m_system->window, m_system->clock,
                        m_system->center);
        m_now = 1h;
        m_panel = std::make_unique<MenuBarPanel>(m_engine, *m_scene,
                                                 PanelToggleGuard([this] { return m_now; }));
    }

    void cleanup()
    {
        m_panel.reset();
        m_scene.reset();
        QCursor::setPos(0, 0);
        Theme::shared().setStyle(AppearanceStyle::Light);
    }

    void windowIsAFixedFramelessToolOnTop()
    {
        const QQuickView &window = m_panel->window();
        QCOMPARE(window.title(), u"Quorvel"_s);
        QCOMPARE(window.flags() & Qt::WindowType_Mask, Qt::Tool);
        QVERIFY(window.flags() & Qt::FramelessWindowHint);
        QVERIFY(window.flags() & Qt::WindowStaysOnTopHint);
        QCOMPARE(window.width(), 340);
        QCOMPARE(window.minimumSize(), window.size());
        QCOMPARE(window.maximumSize(), window.size());
        QVERIFY(!window.isVisible());
    }

    void headerContentAndFooterAreSetOut()
    {
        open();
        QQuickItem *cup = find("name", u"cup.and.saucer.fill"_s);
        QCOMPARE(cup->property("color").value<QColor>(), Theme::shared().color()->accent());
        QCOMPARE(left(cup), 16.0);
        QQuickItem *title = find("text", u"Quorvel"_s);
        QCOMPARE(title->property("font").value<QFont>(), Theme::shared().font()->title());
        QQuickItem *clock = find("label", u"Check-ins"_s);
        QCOMPARE(clock->property("symbol"), u"clock"_s);
        QCOMPARE(top(clock), 12.0);
        QCOMPARE(left(find("text", u"Launch at Login"_s)), 16.0);
        QCOMPARE(left(find("text", u"Quit Quorvel"_s)), 16.0);
        const QQuickItem *toggle = find("label", u"Launch at Login"_s);
        const QQuickItem *quit = find("label", u"Quit Quorvel"_s);
        QCOMPARE(top(quit), top(toggle) + toggle->height() + 4);
        QCOMPARE(top(quit) + quit->height() + 8, double(m_panel->window().height()));
    }

    void clockAsksForTheHistoryWindow()
    {
        open();
        QSignalSpy requested(m_panel.get(), &MenuBarPanel::windowRequested);
        QuickTest::click(find("label", u"Check-ins"_s));
        QCOMPARE(requested.size(), 1);
        QCOMPARE(requested.first().first().toString(), u"history"_s);
    }

    void quitIsPassedOn()
    {
        open();
        QSignalSpy quit(m_panel.get(), &MenuBarPanel::quitRequested);
        QuickTest::click(find("label", u"Quit Quorvel"_s));
        QCOMPARE(quit.size(), 1);
    }

    void toggleSetsTheLoginItemAndReadsItBack()
    {
        open();
        QuickTest::click(loginToggle());
        QCOMPARE(loginItem().registrations, 1);
        QCOMPARE(loginToggle()->property("checked").toBool(), true);
        QuickTest::click(loginToggle());
        QCOMPARE(loginItem().unregistrations, 1);
        QCOMPARE(loginToggle()->property("checked").toBool(), false);
    }

    void refusedChangeLeavesTheToggleWhereItWas()
    {
        loginItem().failure.emplace(LoginItemError::Operation::Register, u"Not today."_s);
        open();
        QuickTest::click(loginToggle());
        QCOMPARE(loginItem().registrations, 1);
        QCOMPARE(loginToggle()->property("checked").toBool(), false);
    }

    void toggleShowsWhatTheStatusBecameThoughItWasRefused()
    {
        loginItem().scriptedStatus = LoginItem::Status::Enabled;
        loginItem().failure.emplace(LoginItemError::Operation::Unregister, u"Not today."_s);
        open();
        loginItem().scriptedStatus = LoginItem::Status::RequiresApproval;
        QuickTest::click(loginToggle());
        QCOMPARE(loginToggle()->property("checked").toBool(), false);
    }

    void openingReadsTheLoginItem()
    {
        QCOMPARE(loginToggle()->property("checked").toBool(), false);
        loginItem().scriptedStatus = LoginItem::Status::Enabled;
        open();
        QCOMPARE(loginToggle()->property("checked").toBool(), true);
        QCOMPARE(loginItem().registrations, 0);
        m_panel->close();
        loginItem().scriptedStatus = LoginItem::Status::NotFound;
        open();
        QCOMPARE(loginToggle()->property("checked").toBool(), false);
    }

    void knobIsInItsPlaceFromTheFirstFrame()
    {
        loginItem().scriptedStatus = LoginItem::Status::Enabled;
        m_panel->open(anchor);
        const QQuickItem *knob = QuickTest::find(loginToggle(), "radius", 7.0);
        QCOMPARE(knob->x(), 16.0);
    }

    void clickOpensBelowTheIcon()
    {
        m_panel->toggle(anchor);
        QVERIFY(QTest::qWaitForWindowActive(&m_panel->window(), patienceMilliseconds));
        QCOMPARE(m_panel->window().position(), QPoint(241, 26));
    }

    void secondClickCloses()
    {
        open();
        m_now += 1s;
        m_panel->toggle(anchor);
        QVERIFY(!m_panel->window().isVisible());
    }

    void doubleClickCountsOnce()
    {
        m_panel->toggle(anchor);
        m_now += 150ms;
        m_panel->toggle(anchor);
        QVERIFY(m_panel->window().isVisible());
    }

    void losingTheFocusCloses()
    {
        open();
        loseFocus();
        QTRY_VERIFY(!m_panel->window().isVisible());
    }

    void losingTheFocusOnTheWayFromTheIconDoesNotClose()
    {
        open();
        QCursor::setPos(anchor.center().x(), m_panel->window().y() - 24);
        loseFocus();
        QVERIFY(m_panel->window().isVisible());
    }

    void losingTheFocusFurtherAwayCloses()
    {
        open();
        QCursor::setPos(anchor.center().x(), m_panel->window().y() - 25);
        loseFocus();
        QVERIFY(!m_panel->window().isVisible());
    }

    void clickThatTookTheFocusDoesNotOpenAgain()
    {
        open();
        m_now += 5s;
        loseFocus();
        QTRY_VERIFY(!m_panel->window().isVisible());
        m_now += 111ms;
        m_panel->toggle(anchor);
        QVERIFY(!m_panel->window().isVisible());
        m_now += 189ms;
        m_panel->toggle(anchor);
        QVERIFY(m_panel->window().isVisible());
    }

    void escapeCloses()
    {
        open();
        QTest::keyClick(&m_panel->window(), Qt::Key_Escape);
        QVERIFY(!m_panel->window().isVisible());
    }

    void escapeClosesFromAnyControl()
    {
        open();
        QTest::keyClick(&m_panel->window(), Qt::Key_Tab);
        QTest::keyClick(&m_panel->window(), Qt::Key_Tab);
        QTest::keyClick(&m_panel->window(), Qt::Key_Escape);
        QVERIFY(!m_panel->window().isVisible());
    }

    void openingAnOpenPanelKeepsIt()
    {
        open();
        const QPoint before = m_panel->window().position();
        m_panel->open(QRect(700, 0, 22, 22));
        QVERIFY(m_panel->window().isVisible());
        QCOMPARE(m_panel->window().position(), before);
    }

    void tabGoesThroughTheControlsFromTop()
    {
        open();
        QStringList order;
        for (int i = 0; i < 4; ++i) {
            QTest::keyClick(&m_panel->window(), Qt::Key_Tab);
            order << m_panel->window().activeFocusItem()->property("label").toString();
        }
        QCOMPARE(order, (QStringList{u"Check-ins"_s, u"Launch at Login"_s, u"Quit Quorvel"_s,
                                     u"Check-ins"_s}));
    }

    void openingAgainStartsWithoutFocusOnAControl()
    {
        open();
        QTest::keyClick(&m_panel->window(), Qt::Key_Tab);
        QVERIFY(find("label", u"Check-ins"_s)->hasActiveFocus());
        m_panel->close();
        open();
        QVERIFY(!find("label", u"Check-ins"_s)->hasActiveFocus());
        QTest::keyClick(&m_panel->window(), Qt::Key_Escape);
        QVERIFY(!m_panel->window().isVisible());
    }

    void windowFollowsTheHeightOfItsView()
    {
        open();
        const int before = m_panel->window().height();
        view()->setImplicitHeight(before + 60);
        QCOMPARE(m_panel->window().height(), before + 60);
        QCOMPARE(view()->height(), before + 60.0);
        view()->setImplicitHeight(before - 60);
        QCOMPARE(m_panel->window().height(), before - 60);
        QCOMPARE(m_panel->window().minimumSize(), m_panel->window().maximumSize());
    }

    void panelAboveABarGrowsUpwards()
    {
        const QRect atBottom(400, 770, 22, 22);
        m_panel->open(atBottom);
        QVERIFY(QTest::qWaitForWindowActive(&m_panel->window(), patienceMilliseconds));
        const auto bottom = [this] { return m_panel->window().geometry().bottom(); };
        QCOMPARE(bottom(), atBottom.top() - 5);
        view()->setImplicitHeight(view()->height() + 60);
        QCOMPARE(bottom(), atBottom.top() - 5);
    }

    void newAppearanceRepaintsTheOpenPanel()
    {
        open();
        QCOMPARE(QuickTest::pixel(view(), {170, 120}), QColor(0xFBF6EF));
        Theme::shared().setStyle(AppearanceStyle::Dark);
        QCOMPARE(QuickTest::pixel(view(), {170, 120}), QColor(0x1A1410));
        QCOMPARE(m_panel->window().color(), QColor(0x1A1410));
    }

    void everyItemThatTakesTheFocusIsNamed()
    {
        int count = 0;
        for (QQuickItem *item : QuickTest::itemsUnder(view())) {
            if (item->activeFocusOnTab() && item->isVisible()) {
                ++count;
                auto *interface = QAccessible::queryAccessibleInterface(item);
                QVERIFY(!interface->text(QAccessible::Name).isEmpty());
                QVERIFY(interface->state().focusable);
            }
        }
        QCOMPARE(count, 3);
    }

    void theSystemIsFollowedWhileThePanelIsOpen()
    {
        QVERIFY(!m_system->systemEvents.isFollowed);
        open();
        QVERIFY(m_system->systemEvents.isFollowed);
        m_panel->close();
        QVERIFY(!m_system->systemEvents.isFollowed);
        open();
        QVERIFY(m_system->systemEvents.isFollowed);
    }

private:
    void open()
    {
        m_panel->open(anchor);
        QVERIFY(QTest::qWaitForWindowActive(&m_panel->window(), patienceMilliseconds));
    }

    void loseFocus()
    {
        m_other.show();
        m_other.requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(&m_other, patienceMilliseconds));
        m_other.hide();
    }

    [[nodiscard]] QQuickItem *view()
    {
        return m_panel->window().contentItem()->childItems().first();
    }
    [[nodiscard]] QQuickItem *find(const char *property, const QString &value)
    {
        return QuickTest::find(view(), property, value);
    }
    [[nodiscard]] FakeLoginItem &loginItem() { return m_system->loginItem; }
    [[nodiscard]] QQuickItem *loginToggle() { return find("label", u"Launch at Login"_s); }

    static double left(const QQuickItem *item) { return item->mapToScene({0, 0}).x(); }
    static double top(const QQuickItem *item) { return item->mapToScene({0, 0}).y(); }

    QQmlEngine m_engine;
    QWindow m_other;
    std::chrono::milliseconds m_now{};
    std::optional<tests::QuietFacilities> m_system;
    std::optional<LoopServices> m_services;
    std::optional<MenuBarScene> m_scene;
    std::unique_ptr<MenuBarPanel> m_panel;
};

QTEST_MAIN(MenuBarPanelTest)
#include "MenuBarPanelTest.moc"
