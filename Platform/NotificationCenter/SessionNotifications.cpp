#include "Platform/NotificationCenter/SessionNotifications.h"

#include "Platform/ApplicationId.h"
#include "Platform/NotificationCenter/NotificationCenter.h"

#include <QDBusMessage>

namespace quorvel {

using namespace Qt::StringLiterals;

namespace {

/// The limit for the bus to take a message. A hung bus must not keep a command from ending.
constexpr int limitMilliseconds = 500;

QString interface()
{
    return u"com.zantho.quorvel.Notifications"_s;
}

QString signalName()
{
    return u"Posted"_s;
}

} // namespace

SessionNotifications::SessionNotifications(QDBusConnection bus, NotificationCenter &center)
    : m_center(center)
{
    if (bus.isConnected())
        bus.connect(QString(), applicationObjectPath, interface(), signalName(), this,
                    SLOT(hear(QString)));
}

void SessionNotifications::announce(const QDBusConnection &bus, const QString &name)
{
    if (!bus.isConnected())
        return;
    bus.send(QDBusMessage::createSignal(applicationObjectPath, interface(), signalName()) << name);
    // Order: the bus handles messages in order, so its answer to this one means that it has the
    // earlier one.
    const auto ping = QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/"_s,
                                                     u"org.freedesktop.DBus.Peer"_s, u"Ping"_s);
    static_cast<void>(bus.call(ping, QDBus::Block, limitMilliseconds));
}

void SessionNotifications::hear(const QString &name)
{
    m_center.post(name);
}

} // namespace quorvel
