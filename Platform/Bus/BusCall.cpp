#include "Platform/Bus/BusCall.h"

#include <QDBusError>
#include <QDBusPendingCallWatcher>
#include <QMetaObject>
#include <QObject>

#include <algorithm>
#include <limits>

namespace quorvel {

using namespace Qt::StringLiterals;

namespace {

/// A call with the largest number as its limit never times out in Qt.
int timeoutOf(std::chrono::milliseconds limit)
{
    constexpr std::chrono::milliseconds longest{std::numeric_limits<int>::max()};
    return static_cast<int>(std::min(limit, longest).count());
}

} // namespace

void BusCall::start(const QDBusConnection &bus, const QDBusMessage &message,
                    std::chrono::milliseconds limit, QObject *context, const Handler &handler)
{
    // Without a bus, Qt never answers a call, not even with an error.
    if (!bus.isConnected()) {
        const auto error = QDBusMessage::createError(QDBusError::Disconnected, u"No bus"_s);
        QMetaObject::invokeMethod(
            context, [handler, error] { handler(error); }, Qt::QueuedConnection);
        return;
    }
    auto *call = new QDBusPendingCallWatcher(bus.asyncCall(message, timeoutOf(limit)), context);
    QObject::connect(call, &QDBusPendingCallWatcher::finished, context, [call, handler] {
        call->deleteLater();
        handler(call->reply());
    });
}

bool BusCall::isError(const QDBusMessage &answer)
{
    return answer.type() != QDBusMessage::ReplyMessage;
}

} // namespace quorvel
