#pragma once

#include "Features/History/HistoryScreen.h"
#include "Tests/Features/History/HistoryWorld.h"
#include "Tests/Features/History/Visits.h"
#include "Tests/Support/QuickTest.h"

#include <QQmlEngine>
#include <QVariant>

#include <memory>

namespace quorvel::tests {

/// The history's window over fakes, with a simulated user. For tests of clicks and keys in its
/// views.
class HistoryOnScreen final
{
public:
    explicit HistoryOnScreen(const Visits &visits);
    ~HistoryOnScreen();
    Q_DISABLE_COPY_MOVE(HistoryOnScreen)

    void open();
    /// Waits two frames: what grows in the first frame moves other items in the second.
    void settle();

    /// The first visible one; null if there is none.
    [[nodiscard]] QQuickItem *shown(const char *property, const QVariant &value);
    [[nodiscard]] QQuickItem *text(const QString &text) { return shown("text", text); }
    [[nodiscard]] QQuickItem *control(const QString &label) { return shown("label", label); }
    /// The label of the focused control; empty if nothing with a label has the focus.
    [[nodiscard]] QString focused();

    void click(QQuickItem *item);
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    [[nodiscard]] QQuickWindow &window() { return *m_window; }

    HistoryWorld world;
    // Order: the window is destroyed before the objects that it is bound to.
    HistoryScreen screen{&world.repository, world.facilities, world.pasteboard, world.renderCard};

private:
    QQmlEngine m_engine;
    std::unique_ptr<QQuickWindow> m_window;
};

} // namespace quorvel::tests
