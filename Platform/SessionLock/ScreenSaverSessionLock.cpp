#include "Platform/SessionLock/ScreenSaverSessionLock.h"

#include <QDBusMessage>
#include <QMetaType>
#include <QVariant>

namespace quorvel {

using namespace Qt::StringLiterals;

namespace {

const auto activeSignal = u"ActiveChanged"_s;
constexpr auto interfaceEnding = ".ScreenSaver"_L1;

} // namespace

ScreenSaverSessionLock::ScreenSaverSessionLock(const QDBusConnection &bus, QObject *parent)
    : SessionLock(parent)
{
    m_lockerWatcher.setConnection(bus);
    m_lockerWatcher.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    connect(&m_lockerWatcher, &QDBusServiceWatcher::serviceUnregistered, this,
            [this] { setLocker({}); });
    // Each desktop has its own interface, and some announce on two. Any of them counts.
    if (bus.isConnected())
        QDBusConnection(bus).connect(QString(), QString(), QString(), activeSignal, this,
                                     SLOT(activeChanged(QDBusMessage)));
}

void ScreenSaverSessionLock::activeChanged(const QDBusMessage &message)
{
    const QVariant isActive = message.arguments().value(0);
    if (!message.interface().endsWith(interfaceEnding) ||
        isActive.metaType() != QMetaType::fromType<bool>())
        return;
    setLocker(isActive.toBool() ? message.service() : QString());
}

void ScreenSaverSessionLock::setLocker(const QString &locker)
{
    if (m_locker == locker)
        return;
    const bool wasLocked = isLocked();
    m_locker = locker;
    // A screen saver that ends silently, as in a crash, leaves the session visible.
    m_lockerWatcher.setWatchedServices(isLocked() ? QStringList{m_locker} : QStringList());
    if (isLocked() != wasLocked)
        emit isLockedChanged();
}

} // namespace quorvel
