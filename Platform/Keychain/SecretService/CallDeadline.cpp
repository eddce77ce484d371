#include "Platform/Keychain/SecretService/CallDeadline.h"

namespace quorvel {

CallDeadline::CallDeadline(std::chrono::milliseconds limit)
    : m_cancellable(g_cancellable_new())
    , m_watchdog([this, limit] {
        if (!m_over.tryAcquire(1, int(limit.count())))
            g_cancellable_cancel(m_cancellable.get());
    })
{}

CallDeadline::~CallDeadline()
{
    m_over.release();
    m_watchdog.join();
}

} // namespace quorvel
