#pragma once

#include <QDBusConnection>
#include <QDBusMessage>

#include <chrono>
#include <functional>

class QObject;

namespace quorvel {

/// One asynchronous call to a service on a bus. Serves the live backends. Never blocks.
namespace BusCall {

/// Receives a reply or an error. A handler that takes a QDBusReply<Type> gets the reply's value, or
/// an error if the reply has another type.
using Handler = std::function<void(const QDBusMessage &answer)>;

/// A limit for calls that wait for the user.
inline constexpr auto noLimit = std::chrono::milliseconds::max();

/// Makes the call. The handler runs exactly once, in a later turn of the event loop, on this
/// thread, which must be the context's. It gets the service's answer, NoReply after the limit, or
/// Disconnected without a bus. If the context is destroyed first, the handler never runs. The
/// handler may destroy the context.
void start(const QDBusConnection &bus, const QDBusMessage &message, std::chrono::milliseconds limit,
           QObject *context, const Handler &handler);

[[nodiscard]] bool isError(const QDBusMessage &answer);

} // namespace BusCall
} // namespace quorvel
