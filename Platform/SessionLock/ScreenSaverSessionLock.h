#pragma once

#include "Platform/SessionLock/SessionLock.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>

class QDBusMessage;

namespace quorvel {

/// Listens to the session's screen saver; all desktops announce it alike. It sends no requests, so
/// an idle icon costs nothing. The session counts as unlocked until an announcement says otherwise.
class ScreenSaverSessionLock final : public SessionLock
{
    Q_OBJECT

public:
    /// Without a connected bus the session is never locked.
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
