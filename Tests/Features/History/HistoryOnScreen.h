#pragma once

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
    explicit HistoryOnScreen(const Visits &visits);
    ~HistoryOnScreen();
    Q_DISABLE_COPY_MOVE(HistoryOnScreen)

    void open();
    /// In two frames: what the first one makes larger moves what is below it in the second.
    void settle();

    /// The first that is on screen; null without one.
    [[nodiscard]] QQuickItem *shown(const char *property, const QVariant &value);
    [[nodiscard]] QQuickItem *text(const QString &text) { return shown("text", text); }
    [[nodiscard]] QQuickItem *control(const QString &label) { return shown("label", label); }
    /// Whose keyboard it is; empty where nothing with a label has the focus.
    [[nodiscard]] QString focused();

    void click(QQuickItem *item);
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    [[nodiscard]] QQuickWindow &window() { return *m_window; }

    HistoryWorld world;
    // Order: what the window is bound to outlives it.
    HistoryScreen screen{world.roles(), world.center};

private:
    QQmlEngine m_engine;
    std::unique_ptr<QQuickWindow> m_window;
};

} // namespace quorvel::tests
