#pragma once

#include "Features/MenuBar/MenuBarPanel.h"
#include "Tests/Features/MenuBar/PanelWorld.h"
#include "Tests/Support/QuickTest.h"

#include <QQmlEngine>
#include <QQuickView>
#include <QScreen>

namespace quorvel::tests {

/// The real panel over a world of fakes, with somebody before it. For tests of what is pressed and
/// typed in its screens.
class PanelOnScreen final
{
public:
    explicit PanelOnScreen(PanelWorld::Store store = PanelWorld::Store::Present)
        : panel(engine, world.roles(store),
                {.isEnabled = [] { return false; }, .setEnabled = [](bool) {}})
    {}

    /// What has been scripted happens.
    void open()
    {
        panel.open({400, 0, 22, 22});
        if (!QTest::qWaitForWindowActive(&window()))
            qFatal("the panel did not open");
        settle();
    }
    /// In two frames: what the first one makes larger moves what is below it in the second.
    void settle()
    {
        for (int frame = 0; frame < 2; ++frame) {
            LoopWorld::settle();
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
    [[nodiscard]] QQuickItem *view(const QString &name) { return shown("objectName", name); }

    /// Ends the program where there is no such control.
    void focus(const QString &label)
    {
        QQuickItem *found = control(label);
        if (!found)
            qFatal("there is no %s", qPrintable(label));
        found->forceActiveFocus(Qt::TabFocusReason);
        settle();
    }
    void press(const QString &label)
    {
        focus(label);
        key(Qt::Key_Space);
    }
    void key(Qt::Key key)
    {
        QTest::keyClick(&window(), key);
        settle();
    }
    /// Letters that a keyboard has by itself.
    void type(const QByteArray &letters)
    {
        for (const char letter : letters)
            QTest::keyClick(&window(), letter);
        settle();
    }

    /// Whether all of it is within the window and on the screen, and nothing scrolls it away.
    [[nodiscard]] bool isInSight(const QQuickItem *item)
    {
        const QRectF area = item->mapRectToScene(QRectF({}, item->size()));
        const QRect screen = window().screen()->availableGeometry();
        QRectF seen(QPointF(), window().size());
        seen &= QRectF(screen.translated(-window().position()));
        for (const auto *holder = item; holder; holder = holder->parentItem())
            if (holder->clip())
                seen &= holder->mapRectToScene(QRectF({}, holder->size()));
        return seen.contains(area);
    }

    [[nodiscard]] QQuickView &window() { return panel.window(); }

    PanelWorld world;
    QQmlEngine engine;
    MenuBarPanel panel;
};

} // namespace quorvel::tests
