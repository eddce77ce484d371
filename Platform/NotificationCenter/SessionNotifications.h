#pragma once

#include <QDBusConnection>
#include <QObject>

namespace quorvel {

class NotificationCenter;

/// Notifications between the program's processes in one session, over its bus. A running program
/// learns what a command in a terminal has done.
class SessionNotifications final : public QObject
{
    Q_OBJECT

public:
    /// Posts to the center what another process announces. The center must outlive this.
    SessionNotifications(QDBusConnection bus, NotificationCenter &center);

    /// Announces to the other processes before it returns. Silent without a bus, where nobody
    /// listens.
    static void announce(const QDBusConnection &bus, const QString &name);

private slots:
    void hear(const QString &name);

private:
    NotificationCenter &m_center;
};

} // namespace quorvel
