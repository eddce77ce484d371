#include "Tests/Features/MenuBar/Panel/PanelOnScreen.h"
#include "Tests/Support/ViewLook.h"

#include <QColor>
#include <QFont>
#include <QObject>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QSizeF>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

/// How the panel around a visit looks, and its screens that have no visit.
class PanelLookTest final : public QObject
{
    Q_OBJECT

private slots:
    static void initTestCase() { QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); }
    void init()
    {
        QuickTest::failOnWarnings();
        m_panel.emplace();
    }
    void cleanup() { m_panel.reset(); }

    void theHeaderHasItsPadding()
    {
        openWaiting();
        const QQuickItem *title = m_panel->text(u"Quorvel"_s);
        QQuickItem *header = title->parentItem();
        const QQuickItem *cup = QuickTest::find(header, "name", u"cup.and.saucer.fill"_s);
        const QQuickItem *history = m_panel->control(u"Check-ins"_s);
        QCOMPARE(ViewLook::margins(cup, header).left(), 16.0);
        QCOMPARE(ViewLook::margins(history, header).right(), 16.0);
        QCOMPARE(ViewLook::margins(history, header).top(), 12.0);
        QCOMPARE(ViewLook::margins(history, header).bottom(), 12.0);
        QVERIFY(ViewLook::across(cup, title) > 0);
        ViewLook::compareSymbol(header, u"cup.and.saucer.fill"_s, 18, "accent");
        ViewLook::compareSymbol(header, u"clock"_s, 16, "textSecondary");
    }

    void theTitleIsSemibold()
    {
        openWaiting();
        const QFont font = m_panel->text(u"Quorvel"_s)->property("font").value<QFont>();
        QCOMPARE(font, ViewLook::font("title"));
    }

    void dividersPartTheHeaderTheContentAndTheFooter()
    {
        openWaiting();
        const QQuickItem *header = m_panel->text(u"Quorvel"_s)->parentItem();
        const QQuickItem *content = m_panel->view(u"LocatingView"_s);
        const QQuickItem *footer = m_panel->control(u"Quit Quorvel"_s)->parentItem();
        QCOMPARE(ViewLook::down(header, content), 1.0);
        QCOMPARE(ViewLook::down(content, footer), 1.0);
        QList<double> tops;
        for (const QQuickItem *item : QuickTest::itemsUnder(m_panel->window().contentItem()))
            if (item->inherits("QQuickItem") && item->property("inset").isValid())
                tops.append(ViewLook::place(item).top());
        QCOMPARE(tops, (QList<double>{ViewLook::place(header).bottom(),
                                      ViewLook::place(content).bottom()}));
        QCOMPARE(ViewLook::margins(footer, m_panel->view(u"MenuBarRootView"_s)).bottom(), 0.0);
    }

    void theFooterHasItsPaddingAndSpacing()
    {
        openWaiting();
        const QQuickItem *toggle = m_panel->control(u"Launch at Login"_s);
        const QQuickItem *quit = m_panel->control(u"Quit Quorvel"_s);
        const QQuickItem *footer = quit->parentItem();
        QCOMPARE(ViewLook::margins(toggle, footer), QMarginsF(8, 8, 8, 8 + quit->height() + 4));
        QCOMPARE(ViewLook::down(toggle, quit), 4.0);
        QCOMPARE(ViewLook::margins(quit, footer).bottom(), 8.0);
        QVERIFY(m_panel->text(u"Launch at Login"_s));
        QVERIFY(m_panel->text(u"Quit Quorvel"_s));
    }

    void waitingHasItsPaddingAndSpacing()
    {
        openWaiting();
        QQuickItem *view = m_panel->view(u"LocatingView"_s);
        const QQuickItem *progress = ViewLook::findClass(view, "quorvel::ProgressDots");
        const QQuickItem *text = m_panel->text(u"Đang định vị quán cafe…"_s);
        QCOMPARE(progress->size(), QSizeF(16, 16));
        QCOMPARE(ViewLook::down(progress, text), 12.0);
        QCOMPARE(view->implicitHeight(), 32 + 16 + 12 + text->height() + 32);
        QCOMPARE(ViewLook::place(progress).center().x(), ViewLook::place(view).center().x());
        QCOMPARE(text->property("font").value<QFont>(), ViewLook::font("body"));
        QCOMPARE(text->property("color").value<QColor>(), ViewLook::color("textPrimary"));
    }

    void aRefusalIsCentredInTheColourOfErrors()
    {
        openRefused();
        const QQuickItem *message = m_panel->text(denied);
        QCOMPARE(message->property("color").value<QColor>(), ViewLook::color("error"));
        QCOMPARE(message->property("font").value<QFont>(), ViewLook::font("body"));
        QCOMPARE(message->property("horizontalAlignment").toInt(), int(Qt::AlignHCenter));
        QVERIFY(message->property("lineCount").toInt() > 1);
    }

    void aRefusalHasItsPaddingAndSpacing()
    {
        openRefused();
        const QQuickItem *view = m_panel->view(u"DeniedView"_s);
        const QQuickItem *message = m_panel->text(denied);
        const QQuickItem *settings = m_panel->control(u"Open System Settings"_s);
        const QQuickItem *retry = m_panel->control(u"Retry"_s);
        QCOMPARE(ViewLook::margins(message, view).left(), 24.0);
        QCOMPARE(ViewLook::margins(message, view).right(), 24.0);
        QCOMPARE(ViewLook::down(message, settings), 12.0 + 16.0);
        QCOMPARE(settings->parentItem()->width(), 16 + settings->width() + 16);
        const double buttons = ViewLook::place(retry).bottom() - ViewLook::place(settings).top();
        QCOMPARE(view->implicitHeight(), 24 + message->height() + 12 + 16 + buttons + 16 + 24);
    }

    void theButtonsOfARefusalAreInTheFontOfButtons()
    {
        openRefused();
        for (const auto &label : {u"Open System Settings"_s, u"Retry"_s}) {
            const QQuickItem *text = QuickTest::find(m_panel->control(label), "text", label);
            QVERIFY(text && text->isVisible());
            QCOMPARE(text->property("font").value<QFont>(), ViewLook::font("button"));
        }
    }

    void aNoticeStandsBelowTheButtons()
    {
        openRefused();
        m_panel->world.systemSettings.canOpen = false;
        m_panel->press(u"Open System Settings"_s);
        const QQuickItem *retry = m_panel->control(u"Retry"_s);
        const QQuickItem *notice = m_panel->text(
            u"No settings program was found here. Please allow location for Quorvel in your "
            "desktop's settings."_s);
        QCOMPARE(ViewLook::down(retry, notice), 16.0 + 12.0);
    }

private:
    void openWaiting()
    {
        m_panel->world.loop.location.holdAuthorization();
        m_panel->open();
    }
    void openRefused()
    {
        m_panel->world.loop.location.authorize(AuthorizationStatus::Denied);
        m_panel->open();
    }

    const QString denied = u"Location access denied. Open System Settings to enable."_s;
    std::optional<PanelOnScreen> m_panel;
};

} // namespace quorvel::tests

QTEST_MAIN(quorvel::tests::PanelLookTest)
#include "PanelLookTest.moc"
