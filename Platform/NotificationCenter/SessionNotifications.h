#pragma once

#include <QDBusConnection>
#include <QObject>

namespace quorvel {

class NotificationCenter;

/// Notifications between the program's processes in one session, over its bus: what a command of
/// the terminal has done, a running program hears as if it had done it itself.
class SessionNotifications final : public QObject
{
    Q_OBJECT

public:
    /// Posts to the center whatever another process announces. The center outlives this.
    SessionNotifications(QDBusConnection bus, NotificationCenter &center);

    /// Has told the others when it returns. Silent where there is no bus, and so nobody to hear.
    static void announce(const QDBusConnection &bus, const QString &name);

private slots:
    void hear(const QString &name);

private:
    NotificationCenter &m_center;
};

} // namespace quorvel
