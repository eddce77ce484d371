#pragma once

#include "Platform/StatusItem/StatusHostGate.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QTimer>

#include <memory>

namespace quorvel {

/// Follows the session bus's status notifier watcher for `StatusHostWatcher`. It asks whether a
/// host is registered, and asks again whenever that may have changed. Never blocks and never starts
/// a watcher.
class NotifierWatcherClient final : public QObject
{
    Q_OBJECT

public:
    NotifierWatcherClient(const QDBusConnection &bus, const StatusHostLimits &limits,
                          QObject *parent = nullptr);

    [[nodiscard]] NotifierWatcher state() const { return m_state; }

signals:
    void stateChanged();

private slots:
    void ask();

private:
    void followSignals();
    void ownerChanged(const QString &newOwner);
    void answered(NotifierWatcher state);
    void keepAsking();
    void setState(NotifierWatcher state);

    QDBusConnection m_bus;
    StatusHostLimits m_limits;
    NotifierWatcher m_state = NotifierWatcher::Unknown;
    QDBusServiceWatcher m_owner;
    /// The context of the latest question. Deleting it ignores the answer.
    std::unique_ptr<QObject> m_question;
    QTimer m_retry;
    int m_unanswered = 0;
};

} // namespace quorvel
