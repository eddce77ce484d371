#pragma once

#include "Platform/Keychain/SecretService/GLibObject.h"

#include <QSemaphore>
#include <gio/gio.h>

#include <chrono>
#include <thread>

namespace quorvel {

/// Ends a synchronous GLib call that takes too long, since the other side may hang and never
/// answer. A separate thread watches the time while the calling thread waits.
class CallDeadline final
{
public:
    explicit CallDeadline(std::chrono::milliseconds limit);
    CallDeadline(const CallDeadline &) = delete;
    CallDeadline &operator=(const CallDeadline &) = delete;
    ~CallDeadline();

    /// Pass it to every call that must end before the deadline.
    [[nodiscard]] GCancellable *cancellable() const { return m_cancellable.get(); }

private:
    GLibObject<GCancellable> m_cancellable;
    QSemaphore m_over;
    // Order: starts last, because it uses the other two.
    std::thread m_watchdog;
};

} // namespace quorvel
