#include "Platform/Wifi/NetworkManager/NetworkManagerBus.h"

#include <QDBusError>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <algorithm>
#include <limits>

namespace quorvel {

using namespace Qt::StringLiterals;

namespace {

void registerTypes()
{
    [[maybe_unused]] static const bool once = [] {
        qDBusRegisterMetaType<NetworkManagerGroups>();
        qDBusRegisterMetaType<NetworkManagerObjects>();
        return true;
    }();
}

QDBusMessage messageOf(const NetworkManagerCall &call)
{
    QDBusMessage message = QDBusMessage::createMethodCall(NetworkManagerNames::service, call.path,
                                                          call.interface, call.member);
    message.setArguments(call.arguments);
    message.setAutoStartService(false);
    return message;
}

/// The largest number is the bus library's own word for "for ever".
int timeoutOf(std::chrono::milliseconds limit)
{
    constexpr std::chrono::milliseconds longest{std::numeric_limits<int>::max()};
    return static_cast<int>(std::min(limit, longest).count());
}

bool endsInAny(const QString &name, std::initializer_list<QLatin1StringView> endings)
{
    return std::any_of(endings.begin(), endings.end(),
                       [&name](QLatin1StringView ending) { return name.endsWith(ending); });
}

} // namespace

NetworkManagerBus::NetworkManagerBus(QDBusConnection connection)
    : m_connection(std::move(connection))
{
    registerTypes();
}

void NetworkManagerBus::call(QObject *context, const NetworkManagerCall &call,
                             std::chrono::milliseconds limit, const Handler &handler) const
{
    // A call on a bus that is not there would never be answered, not even with an error.
    if (!m_connection.isConnected()) {
        const auto error = QDBusMessage::createError(QDBusError::Disconnected, u"No bus"_s);
        QMetaObject::invokeMethod(
            context, [handler, error] { handler(error); }, Qt::QueuedConnection);
        return;
    }
    auto *watcher = new QDBusPendingCallWatcher(
        m_connection.asyncCall(messageOf(call), timeoutOf(limit)), context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context, [watcher, handler] {
        watcher->deleteLater();
        handler(watcher->reply());
    });
}

void NetworkManagerBus::send(const NetworkManagerCall &call) const
{
    m_connection.send(messageOf(call));
}

bool NetworkManagerBus::isError(const QDBusMessage &reply)
{
    return reply.type() != QDBusMessage::ReplyMessage;
}

WifiError NetworkManagerBus::errorOf(const QDBusMessage &reply)
{
    const QString name = reply.errorName();
    if (endsInAny(name, {".ServiceUnknown"_L1, ".NameHasNoOwner"_L1, ".Disconnected"_L1}))
        return WifiError(WifiError::Code::ServiceGone);
    if (endsInAny(name, {".NoReply"_L1, ".Timeout"_L1, ".TimedOut"_L1}))
        return WifiError(WifiError::Code::TimedOut);
    if (endsInAny(name, {".PermissionDenied"_L1, ".NotAllowed"_L1, ".AccessDenied"_L1}))
        return WifiError(WifiError::Code::NotAllowed);
    return WifiError(WifiError::Code::Failed, reply.errorMessage());
}

} // namespace quorvel
