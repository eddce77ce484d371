#include "Features/MenuBar/Panel/Window/PanelFocusWatch.h"

#include "Tests/Support/Patience.h"

#include <QCoreApplication>
#include <QEnterEvent>
#include <QShowEvent>
#include <QSignalSpy>
#include <QTest>
#include <QWindow>

#include <chrono>
#include <memory>
#include <optional>

using namespace quorvel;
using namespace std::chrono_literals;

namespace quorvel::tests {

/// A window with the focus, another one that can take it, and the signals about that.
class PanelFocusWatchTest final : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        m_panel.reset();
        m_other.hide();
    }

    void awayFromThePanelTheFocusIsLostAtOnce()
    {
        show(Pointer::Elsewhere, 1h);
        loseFocus();
        QCOMPARE(m_lost->size(), 1);
    }

    void onTheWayItCanComeBackWhileThereIsPatience()
    {
        show(Pointer::OnTheWay, 1h);
        loseFocus();
        QCOMPARE(m_lost->size(), 0);
        QVERIFY(isWaiting());
        focus(*m_panel);
        QCOMPARE(m_lost->size(), 0);
        QVERIFY(!isWaiting());
    }

    void onTheWayItIsLostInTheEnd()
    {
        show(Pointer::OnTheWay, 1ms);
        loseFocus();
        QTRY_COMPARE(m_lost->size(), 1);
    }

    void afterThePointerWasThereItIsLostAtOnce()
    {
        show(Pointer::OnTheWay, 1h);
        enter();
        loseFocus();
        QCOMPARE(m_lost->size(), 1);
    }

    void afterAKeyItIsLostAtOnce()
    {
        show(Pointer::OnTheWay, 1h);
        QTest::keyClick(m_panel.get(), Qt::Key_Tab);
        loseFocus();
        QCOMPARE(m_lost->size(), 1);
    }

    void aFocusThatNeverComesIsLostInTheEnd()
    {
        makePanel(Pointer::OnTheWay, 1ms);
        showUnfocused();
        QTRY_COMPARE(m_lost->size(), 1);
    }

    void whoeverIsThereNeedsNoFocusToStay()
    {
        makePanel(Pointer::OnTheWay, 1h);
        showUnfocused();
        QVERIFY(isWaiting());
        enter();
        QVERIFY(!isWaiting());
    }

    void elsewhereNobodyWaitsForTheFocus()
    {
        makePanel(Pointer::Elsewhere, 1h);
        showUnfocused();
        QVERIFY(!isWaiting());
    }

    void everyShowingHasItsOwnWay()
    {
        show(Pointer::OnTheWay, 1h);
        enter();
        m_panel->hide();
        focus(*m_panel);
        loseFocus();
        QCOMPARE(m_lost->size(), 0);
    }

    void nobodyWaitsForAWindowThatIsHidden()
    {
        show(Pointer::OnTheWay, 1h);
        loseFocus();
        QVERIFY(isWaiting());
        m_panel->hide();
        QVERIFY(!isWaiting());
        QCOMPARE(m_lost->size(), 0);
    }

    void hidingLosesNothing()
    {
        show(Pointer::Elsewhere, 1h);
        m_panel->hide();
        loseFocus();
        QCOMPARE(m_lost->size(), 0);
    }

private:
    enum class Pointer { Elsewhere, OnTheWay };

    void makePanel(Pointer pointer, std::chrono::milliseconds patience)
    {
        m_panel = std::make_unique<QWindow>();
        m_watch = new PanelFocusWatch(
            *m_panel, [pointer] { return pointer == Pointer::OnTheWay; }, patience, m_panel.get());
        m_lost.emplace(m_watch, &PanelFocusWatch::lost);
    }

    void show(Pointer pointer, std::chrono::milliseconds patience)
    {
        makePanel(pointer, patience);
        focus(*m_panel);
    }

    /// On this platform every visible window gets the focus.
    void showUnfocused()
    {
        QShowEvent event;
        QCoreApplication::sendEvent(m_panel.get(), &event);
    }

    static void focus(QWindow &window)
    {
        window.show();
        window.requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(&window, patienceMilliseconds));
    }

    void loseFocus() { focus(m_other); }

    void enter()
    {
        QEnterEvent event({1, 1}, {1, 1}, {1, 1});
        QCoreApplication::sendEvent(m_panel.get(), &event);
    }

    [[nodiscard]] bool isWaiting() const
    {
        return m_watch->findChild<QTimer *>(u"patience"_qs)->isActive();
    }

    QWindow m_other;
    std::unique_ptr<QWindow> m_panel;
    PanelFocusWatch *m_watch = nullptr;
    std::optional<QSignalSpy> m_lost;
};

} // namespace quorvel::tests

QTEST_MAIN(quorvel::tests::PanelFocusWatchTest)
#include "PanelFocusWatchTest.moc"
