#include "Tests/Features/MenuBar/Panel/PanelOnScreen.h"

#include "Tests/Support/Patience.h"

#include <QPointF>
#include <QRectF>
#include <QScreen>
#include <QVariant>

namespace quorvel::tests {

PanelOnScreen::PanelOnScreen(PanelWorld::Store store)
    : scene(world.makeScene(store))
    , panel(engine, scene)
{}

PanelOnScreen::~PanelOnScreen() = default;

void PanelOnScreen::open()
{
    panel.open({400, 0, 22, 22});
    if (!QTest::qWaitForWindowActive(&window(), patienceMilliseconds))
        qFatal("the panel did not open");
    settle();
}

void PanelOnScreen::settle()
{
    for (int frame = 0; frame < 2; ++frame) {
        LoopWorld::settle();
        window().grabWindow();
    }
}

QQuickItem *PanelOnScreen::shown(const char *property, const QVariant &value)
{
    return QuickTest::shown(window(), property, value);
}

void PanelOnScreen::focus(const QString &label)
{
    QQuickItem *found = control(label);
    if (!found)
        qFatal("there is no %s", qPrintable(label));
    found->forceActiveFocus(Qt::TabFocusReason);
    settle();
}

void PanelOnScreen::press(const QString &label)
{
    focus(label);
    key(Qt::Key_Space);
}

void PanelOnScreen::key(Qt::Key key)
{
    QTest::keyClick(&window(), key);
    settle();
}

void PanelOnScreen::type(const QByteArray &letters)
{
    for (const char letter : letters)
        QTest::keyClick(&window(), letter);
    settle();
}

bool PanelOnScreen::isInSight(const QQuickItem *item)
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

} // namespace quorvel::tests
