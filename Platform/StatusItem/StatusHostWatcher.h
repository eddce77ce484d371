#pragma once

#include "Platform/StatusItem/StatusHostGate.h"

#include <QObject>
#include <QTimer>

#include <utility>

namespace quorvel {

class NotifierWatcherClient;
class XEmbedManagerWatcher;

/// Tells `TrayStatusItem` when it may make its icon, and from then on whether anybody shows it.
/// Feeds the gate from the session bus and the X server; holds nobody up.
class StatusHostWatcher final : public QObject
{
    Q_OBJECT

public:
    /// Starts asking at once; decides nothing before the next turn of the event loop.
    explicit StatusHostWatcher(const StatusHostLimits &limits = {}, QObject *parent = nullptr);

    /// The kind of host to make the icon for: `None` until one is there, then never another, since
    /// the toolkit settles this once a process.
    [[nodiscard]] StatusHost chosenHost() const { return m_chosen; }

    /// Whether a host of the chosen kind is there now.
    [[nodiscard]] bool isHostThere() const;

    [[nodiscard]] const StatusHostFacts &facts() const { return m_facts; }

signals:
    /// Any of the three above has changed.
    void changed();

private:
    void update();
    void watchGrace();

    StatusHostFacts m_facts;
    StatusHost m_chosen = StatusHost::None;
    /// The two at the last `changed`.
    std::pair<StatusHostFacts, StatusHost> m_told;
    NotifierWatcherClient *m_notifierWatcher;
    XEmbedManagerWatcher *m_xEmbedManager;
    QTimer m_grace;
};

} // namespace quorvel
