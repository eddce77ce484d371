#pragma once

#include <QDBusConnection>
#include <QDBusMessage>

#include <chrono>
#include <functional>

class QObject;

namespace quorvel {

/// One call to a service on a bus, for whoever translates that service. Never blocks.
namespace BusCall {

/// Hears the answer: a reply or an error. A handler that takes a QDBusReply<Type> gets the value of
/// a reply, and an error for a reply of another type.
using Handler = std::function<void(const QDBusMessage &answer)>;

/// A limit for calls that last as long as the user thinks about them.
inline constexpr auto noLimit = std::chrono::milliseconds::max();

/// Makes the call. The handler is called exactly once, in a later turn of the event loop, on this
/// thread, which is the context's: with the service's answer, with NoReply after the limit, or with
/// Disconnected where there is no bus. If the context is destroyed before, the handler is not
/// called; the handler itself may destroy it.
void start(const QDBusConnection &bus, const QDBusMessage &message, std::chrono::milliseconds limit,
           QObject *context, const Handler &handler);

[[nodiscard]] bool isError(const QDBusMessage &answer);

} // namespace BusCall
} // namespace quorvel
