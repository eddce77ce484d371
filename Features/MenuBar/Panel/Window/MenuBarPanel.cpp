#include "Features/MenuBar/Panel/Window/MenuBarPanel.h"

#include "Core/DesignSystem/Rendering/ViewFactory.h"
#include "Core/DesignSystem/Theme/Theme.h"
#include "Features/MenuBar/Panel/Window/MenuBarScene.h"
#include "Features/MenuBar/Panel/Window/PanelFocusWatch.h"
#include "Features/MenuBar/Panel/Window/PanelPlacement.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMargins>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QScreen>
#include <QSizeF>
#include <QVariant>
#include <QWindow>

#include <utility>

using namespace Qt::StringLiterals;

namespace quorvel {
namespace {

/// The gap between the icon and the panel, and the margin at the sides.
constexpr int wayPoints = 24;

/// On Wayland a program can neither place its windows nor know where the pointer is.
bool isPlacedByDesktop()
{
    return QGuiApplication::platformName().startsWith(u"wayland");
}

QList<ScreenArea> screenAreas()
{
    QList<ScreenArea> areas;
    for (const QScreen *screen : QGuiApplication::screens())
        areas.append({.geometry = screen->geometry(), .available = screen->availableGeometry()});
    return areas;
}

} // namespace

MenuBarPanel::MenuBarPanel(QQmlEngine &engine, MenuBarScene &scene, PanelToggleGuard guard)
    : m_scene(scene)
    , m_guard(std::move(guard))
    , m_window(std::make_unique<QQuickView>(&engine, nullptr))
{
    setUpWindow();
    auto view = ViewFactory::make(engine, u"MenuBar"_s, u"MenuBarRootView"_s,
                                  {{u"scene"_s, QVariant::fromValue(&m_scene)}});
    m_view = qobject_cast<QQuickItem *>(view.release());
    m_view->setParent(m_window->contentItem());
    m_view->setParentItem(m_window->contentItem());
    followView();
    fitToView();
}

MenuBarPanel::~MenuBarPanel() = default;

void MenuBarPanel::toggle(const QRect &anchor)
{
    if (!m_guard.admitClick())
        return;
    if (m_window->isVisible())
        close();
    else
        open(anchor);
}

void MenuBarPanel::open(const QRect &anchor)
{
    if (!m_window->isVisible()) {
        m_anchor = anchor;
        m_scene.appear();
        focusNoControl();
        limitHeight();
        place();
        m_window->show();
    }
    m_window->raise();
    m_window->requestActivate();
}

void MenuBarPanel::close()
{
    m_window->hide();
}

void MenuBarPanel::setUpWindow()
{
    m_window->setTitle(u"Quorvel"_s);
    // A popup would get neither the focus nor a grab from Qt, so it would miss Escape and clicks
    // elsewhere.
    m_window->setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    const auto paint = [this] { m_window->setColor(Theme::shared().color()->background()); };
    connect(Theme::shared().color(), &ThemeColor::changed, this, paint);
    paint();
    connect(m_window.get(), &QWindow::visibleChanged, &m_scene, [this](bool isVisible) {
        if (!isVisible)
            m_scene.disappear();
    });
    auto *watch = new PanelFocusWatch(
        *m_window, [this] { return isOnTheWay(); }, PanelFocusWatch::defaultPatience, this);
    connect(watch, &PanelFocusWatch::lost, this, &MenuBarPanel::closeOnFocusLoss);
    // Queued: Qt itself moves the windows of a removed screen, and to any place.
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &MenuBarPanel::placeAnew,
            Qt::QueuedConnection);
}

void MenuBarPanel::followView()
{
    connect(m_view, &QQuickItem::implicitHeightChanged, this, &MenuBarPanel::fitToView);
    connect(m_view, SIGNAL(windowRequested(QString)), this, SIGNAL(windowRequested(QString)));
    connect(m_view, SIGNAL(quitRequested()), this, SIGNAL(quitRequested()));
    connect(m_view, SIGNAL(dismissRequested()), this, SLOT(close()));
}

void MenuBarPanel::fitToView()
{
    const QSize size = QSizeF(m_view->implicitWidth(), m_view->implicitHeight()).toSize();
    m_view->setSize(size);
    // A fixed size keeps a tiling compositor from stretching the panel over the screen.
    m_window->setMinimumSize(size);
    m_window->setMaximumSize(size);
    m_window->resize(size);
    if (m_window->isVisible())
        place();
}

void MenuBarPanel::focusNoControl()
{
    if (QQuickItem *focused = m_view->scopedFocusItem())
        focused->setFocus(false);
    m_view->forceActiveFocus();
}

void MenuBarPanel::limitHeight()
{
    const auto screens = screenAreas();
    const int room = isPlacedByDesktop()
                         ? PanelPlacement::leastHeight(screens)
                         : PanelPlacement::available(m_anchor, QCursor::pos(), screens).height();
    if (room > 0)
        m_view->setProperty("maximumHeight", room);
}

void MenuBarPanel::place()
{
    m_window->setPosition(
        PanelPlacement::topLeft(m_window->size(), m_anchor, QCursor::pos(), screenAreas()));
}

void MenuBarPanel::placeAnew()
{
    if (!m_window->isVisible())
        return;
    limitHeight();
    place();
}

bool MenuBarPanel::isOnTheWay() const
{
    const QMargins way(wayPoints, wayPoints, wayPoints, wayPoints);
    return isPlacedByDesktop() || m_window->geometry().marginsAdded(way).contains(QCursor::pos());
}

void MenuBarPanel::closeOnFocusLoss()
{
    close();
    m_guard.noteFocusLoss();
}

} // namespace quorvel
