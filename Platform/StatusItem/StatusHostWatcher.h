#pragma once

#include "Platform/StatusItem/StatusHostGate.h"

#include <QObject>
#include <QTimer>

#include <utility>

namespace quorvel {

class NotifierWatcherClient;
class XEmbedManagerWatcher;

/// Tells `TrayStatusItem` when it may make its icon, and later whether a host shows it. It feeds
/// the gate from the session bus and the X server. Never blocks.
class StatusHostWatcher final : public QObject
{
    Q_OBJECT

public:
    /// Asks at once, and decides nothing before the next turn of the event loop.
    explicit StatusHostWatcher(const StatusHostLimits &limits = {}, QObject *parent = nullptr);

    /// The kind of host to make the icon for: `None` until one is there. Then it never changes,
    /// since the toolkit chooses once per process.
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
    /// Their values at the last `changed`.
    std::pair<StatusHostFacts, StatusHost> m_told;
    NotifierWatcherClient *m_notifierWatcher;
    XEmbedManagerWatcher *m_xEmbedManager;
    QTimer m_grace;
};

} // namespace quorvel
