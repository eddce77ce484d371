#include "Platform/StatusItem/StatusHostWatcher.h"

#include "Platform/Bus/SessionBus.h"
#include "Platform/StatusItem/NotifierWatcherClient.h"
#include "Platform/StatusItem/XEmbedManagerWatcher.h"

#include <QMetaObject>

namespace quorvel {

StatusHostWatcher::StatusHostWatcher(const StatusHostLimits &limits, QObject *parent)
    : QObject(parent)
    // Order: the bus takes longer than the X server, so it is asked first.
    , m_notifierWatcher(new NotifierWatcherClient(SessionBus::connection(), limits, this))
    , m_xEmbedManager(new XEmbedManagerWatcher(this))
{
    m_grace.setSingleShot(true);
    m_grace.setInterval(limits.hostGrace);
    connect(&m_grace, &QTimer::timeout, this, [this] {
        m_facts.grace = HostGrace::Over;
        update();
    });
    connect(m_notifierWatcher, &NotifierWatcherClient::stateChanged, this,
            &StatusHostWatcher::update);
    connect(m_xEmbedManager, &XEmbedManagerWatcher::isPresentChanged, this,
            &StatusHostWatcher::update);
    QMetaObject::invokeMethod(this, &StatusHostWatcher::update, Qt::QueuedConnection);
}

bool StatusHostWatcher::isHostThere() const
{
    return StatusHostGate::isThere(m_chosen, m_facts);
}

void StatusHostWatcher::update()
{
    m_facts.hasXEmbedManager = m_xEmbedManager->isPresent();
    if (m_facts.watcher != m_notifierWatcher->state()) {
        m_facts.watcher = m_notifierWatcher->state();
        watchGrace();
    }
    if (m_chosen == StatusHost::None)
        m_chosen = StatusHostGate::decide(m_facts);
    const auto state = std::pair(m_facts, m_chosen);
    if (std::exchange(m_told, state) != state)
        emit changed();
}

void StatusHostWatcher::watchGrace()
{
    m_facts.grace = HostGrace::Running;
    if (m_facts.watcher == NotifierWatcher::WithoutHost)
        m_grace.start();
    else
        m_grace.stop();
}

} // namespace quorvel
