#include "Features/MenuBar/Icon/MenuBarLabel.h"

#include "Features/MenuBar/Icon/MenuBarIcon.h"
#include "Platform/SessionLock/SessionLock.h"
#include "Platform/StatusItem/StatusItem.h"

#include <chrono>

namespace quorvel {

namespace {

constexpr std::chrono::milliseconds tickInterval(650);

} // namespace

MenuBarLabel::MenuBarLabel(StatusItem &item, const SessionLock &lock, QObject *parent)
    : QObject(parent)
    , m_item(item)
    , m_lock(lock)
    , m_ticker(new QTimer(this))
{
    m_ticker->setObjectName(QStringLiteral("ticker"));
    m_ticker->setInterval(tickInterval);
    connect(m_ticker, &QTimer::timeout, this, &MenuBarLabel::tick);
    connect(&m_item, &StatusItem::isShownChanged, this, &MenuBarLabel::restWhileUnseen);
    connect(&m_lock, &SessionLock::isLockedChanged, this, &MenuBarLabel::restWhileUnseen);
    showPicture();
    restWhileUnseen();
}

const QIcon &MenuBarLabel::normal()
{
    static const QIcon icon = MenuBarIcon::icon(MenuBarIcon::normalDotRadius);
    return icon;
}

const QIcon &MenuBarLabel::large()
{
    static const QIcon icon = MenuBarIcon::icon(MenuBarIcon::largeDotRadius);
    return icon;
}

void MenuBarLabel::tick()
{
    m_enlarged = !m_enlarged;
    showPicture();
}

void MenuBarLabel::showPicture()
{
    m_item.setIcon(m_enlarged ? large() : normal());
}

void MenuBarLabel::restWhileUnseen()
{
    // Deliberate: the ticker rests while no host shows the item and while the session is locked.
    // Nobody sees it then, and resting saves 92 wake-ups a minute.
    if (m_item.isShown() && !m_lock.isLocked())
        m_ticker->start();
    else
        m_ticker->stop();
}

} // namespace quorvel
