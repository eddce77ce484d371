#pragma once

#include "Features/MenuBar/Panel/Window/MenuBarPanel.h"
#include "Tests/Features/MenuBar/Panel/PanelWorld.h"
#include "Tests/Support/QuickTest.h"

#include <QQmlEngine>
#include <QQuickView>

namespace quorvel::tests {

/// The real panel over a world of fakes, with somebody before it. For tests of what is pressed and
/// typed in its screens.
class PanelOnScreen final
{
public:
    explicit PanelOnScreen(PanelWorld::Store store = PanelWorld::Store::Present);
    ~PanelOnScreen();
    Q_DISABLE_COPY_MOVE(PanelOnScreen)

    /// What has been scripted happens.
    void open();
    /// In two frames: what the first one makes larger moves what is below it in the second.
    void settle();

    /// The first that is on screen; null without one.
    [[nodiscard]] QQuickItem *shown(const char *property, const QVariant &value);
    [[nodiscard]] QQuickItem *text(const QString &text) { return shown("text", text); }
    [[nodiscard]] QQuickItem *control(const QString &label) { return shown("label", label); }
    [[nodiscard]] QQuickItem *view(const QString &name) { return shown("objectName", name); }

    /// Ends the program where there is no such control.
    void focus(const QString &label);
    void press(const QString &label);
    void key(Qt::Key key);
    /// Letters that a keyboard has by itself.
    void type(const QByteArray &letters);

    /// Whether all of it is within the window and on the screen, and nothing scrolls it away.
    [[nodiscard]] bool isInSight(const QQuickItem *item);

    [[nodiscard]] QQuickView &window() { return panel.window(); }

    PanelWorld world;
    QQmlEngine engine;
    MenuBarPanel panel;
};

} // namespace quorvel::tests
