#pragma once

#include "Features/MenuBar/Panel/Window/MenuBarPanel.h"
#include "Tests/Features/MenuBar/Panel/PanelWorld.h"
#include "Tests/Support/QuickTest.h"

#include <QQmlEngine>
#include <QQuickView>
#include <QVariant>

namespace quorvel::tests {

/// The real panel over fakes, with a simulated user. For tests of clicks and keys in its screens.
class PanelOnScreen final
{
public:
    explicit PanelOnScreen(PanelWorld::Store store = PanelWorld::Store::Present);
    ~PanelOnScreen();
    Q_DISABLE_COPY_MOVE(PanelOnScreen)

    /// Runs what the script says.
    void open();
    /// Waits two frames: what grows in the first frame moves other items in the second.
    void settle();

    /// The first visible one; null if there is none.
    [[nodiscard]] QQuickItem *shown(const char *property, const QVariant &value);
    [[nodiscard]] QQuickItem *text(const QString &text) { return shown("text", text); }
    [[nodiscard]] QQuickItem *control(const QString &label) { return shown("label", label); }
    [[nodiscard]] QQuickItem *view(const QString &name) { return shown("objectName", name); }

    /// Ends the program if there is no such control.
    void focus(const QString &label);
    void press(const QString &label);
    void key(Qt::Key key);
    /// Letters that a keyboard has without a compose key.
    void type(const QByteArray &letters);

    /// Whether the whole item is inside the window and on the screen, and not scrolled away.
    [[nodiscard]] bool isInSight(const QQuickItem *item);

    [[nodiscard]] QQuickView &window() { return panel.window(); }

    PanelWorld world;
    QQmlEngine engine;
    MenuBarScene scene;
    MenuBarPanel panel;
};

} // namespace quorvel::tests
