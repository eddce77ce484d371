#include "Platform/Wifi/NetworkManager/NetworkManagerBus.h"

#include <QDBusMetaType>
#include <QObject>

#include <algorithm>
#include <initializer_list>
#include <utility>

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
                             std::chrono::milliseconds limit, const BusCall::Handler &handler) const
{
    BusCall::start(m_connection, messageOf(call), limit, context, handler);
}

void NetworkManagerBus::send(const NetworkManagerCall &call) const
{
    m_connection.send(messageOf(call));
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
