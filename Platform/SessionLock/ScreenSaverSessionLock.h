#pragma once

#include "Platform/SessionLock/SessionLock.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>

class QDBusMessage;

namespace quorvel {

/// Hears the session's screen saver, whichever desktop's it is: they all announce themselves alike.
/// Asks it nothing, so that an icon that waits all day costs nothing, and takes the session for
/// unlocked until it is told otherwise.
class ScreenSaverSessionLock final : public SessionLock
{
    Q_OBJECT

public:
    /// On a bus that is not connected the session is never locked.
    explicit ScreenSaverSessionLock(const QDBusConnection &bus, QObject *parent = nullptr);

    [[nodiscard]] bool isLocked() const override { return !m_locker.isEmpty(); }

private slots:
    void activeChanged(const QDBusMessage &message);

private:
    void setLocker(const QString &locker);

    QString m_locker; ///< Who has locked it, by its unique name on the bus.
    QDBusServiceWatcher m_lockerWatcher;
};

} // namespace quorvel
