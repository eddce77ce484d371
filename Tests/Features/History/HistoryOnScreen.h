#pragma once

#include "Core/DesignSystem/ViewFactory.h"
#include "Features/History/HistoryScreen.h"
#include "Tests/Features/History/HistoryWorld.h"
#include "Tests/Features/History/Visits.h"
#include "Tests/Support/QuickTest.h"

#include <QQmlEngine>

namespace quorvel::tests {

/// The window of the history over a world of fakes, with somebody before it. For tests of what is
/// pressed in its views.
class HistoryOnScreen final
{
public:
    explicit HistoryOnScreen(const Visits &visits) { world.repository.visits = visits; }

    void open()
    {
        if (QQuickWindow::sceneGraphBackend() != u"software")
            QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
        m_window.reset(qobject_cast<QQuickWindow *>(
            ViewFactory::make(m_engine, QStringLiteral("History"), QStringLiteral("HistoryWindow"),
                              {{QStringLiteral("screen"), QVariant::fromValue(&screen)}})
                .release()));
        window().show();
        if (!QTest::qWaitForWindowActive(&window()))
            qFatal("the history did not open");
        settle();
    }
    /// In two frames: what the first one makes larger moves what is below it in the second.
    void settle()
    {
        for (int frame = 0; frame < 2; ++frame) {
            turnEventLoop();
            window().grabWindow();
        }
    }

    /// The first that is on screen; null without one.
    [[nodiscard]] QQuickItem *shown(const char *property, const QVariant &value)
    {
        for (QQuickItem *item : QuickTest::itemsUnder(window().contentItem()))
            if (item->isVisible() && item->property(property) == value)
                return item;
        return nullptr;
    }
    [[nodiscard]] QQuickItem *text(const QString &text) { return shown("text", text); }
    [[nodiscard]] QQuickItem *control(const QString &label) { return shown("label", label); }
    /// Whose keyboard it is; empty where nothing with a label has the focus.
    [[nodiscard]] QString focused()
    {
        const QQuickItem *item = window().activeFocusItem();
        return item ? item->property("label").toString() : QString();
    }

    void click(QQuickItem *item)
    {
        QuickTest::click(item);
        settle();
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&window(), key, modifiers);
        settle();
    }
    [[nodiscard]] QQuickWindow &window() { return *m_window; }

    HistoryWorld world;
    // Order: what the window is bound to outlives it.
    HistoryScreen screen{world.roles(), world.center};

private:
    QQmlEngine m_engine;
    std::unique_ptr<QQuickWindow> m_window;
};

} // namespace quorvel::tests
