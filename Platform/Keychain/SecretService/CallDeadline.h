#pragma once

#include "Platform/Keychain/SecretService/GLibObject.h"

#include <QSemaphore>
#include <gio/gio.h>

#include <chrono>
#include <thread>

namespace quorvel {

/// Ends a synchronous call of GLib's that takes too long: what is called may have stopped and never
/// answer. A thread of its own watches the time, because the calling one is waiting.
class CallDeadline final
{
public:
    explicit CallDeadline(std::chrono::milliseconds limit);
    CallDeadline(const CallDeadline &) = delete;
    CallDeadline &operator=(const CallDeadline &) = delete;
    ~CallDeadline();

    /// To be given to each call that has to be over by then.
    [[nodiscard]] GCancellable *cancellable() const { return m_cancellable.get(); }

private:
    GLibObject<GCancellable> m_cancellable;
    QSemaphore m_over;
    // Order: started last, because it uses the other two.
    std::thread m_watchdog;
};

} // namespace quorvel
