#include "Platform/StatusItem/TrayStatusItem.h"

#include "Platform/StatusItem/StatusHostWatcher.h"

#include <QMenu>
#include <QSystemTrayIcon>

namespace quorvel {

TrayStatusItem::TrayStatusItem(const StatusHostLimits &limits, QObject *parent)
    : StatusItem(parent)
    , m_hosts(new StatusHostWatcher(limits, this))
{
    connect(m_hosts, &StatusHostWatcher::changed, this, &TrayStatusItem::update);
}

TrayStatusItem::~TrayStatusItem() = default;

void TrayStatusItem::setIcon(const QIcon &icon)
{
    m_icon = icon;
    if (m_trayIcon)
        m_trayIcon->setIcon(icon);
}

QRect TrayStatusItem::geometry() const
{
    if (!m_isShown)
        return {};
    // An icon that is not docked yet reports the corner of the screen.
    const QRect geometry = m_trayIcon->geometry();
    return geometry.topLeft().isNull() ? QRect() : geometry;
}

void TrayStatusItem::update()
{
    if (!m_trayIcon && m_hosts->chosenHost() != StatusHost::None)
        makeTrayIcon();
    const bool isShown = m_hosts->isHostThere();
    if (m_isShown == isShown)
        return;
    m_isShown = isShown;
    emit isShownChanged();
}

void TrayStatusItem::makeTrayIcon()
{
    m_menu = makeMenu();
    m_trayIcon = std::make_unique<QSystemTrayIcon>(m_icon, this);
    m_trayIcon->setToolTip(QStringLiteral("Quorvel"));
    m_trayIcon->setContextMenu(m_menu.get());
    connect(m_trayIcon.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger)
                    emit activated();
            });
    m_trayIcon->show();
}

std::unique_ptr<QMenu> TrayStatusItem::makeMenu()
{
    auto menu = std::make_unique<QMenu>();
    menu->addAction(QStringLiteral("Open Quorvel"), this, &TrayStatusItem::openRequested);
    menu->addAction(QStringLiteral("Quit Quorvel"), this, &TrayStatusItem::quitRequested);
    return menu;
}

} // namespace quorvel
