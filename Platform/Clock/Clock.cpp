#include "Platform/Clock/Clock.h"

namespace quorvel {

namespace {

class SystemClock final : public Clock
{
public:
    [[nodiscard]] Instant now() const override
    {
        return std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());
    }
    [[nodiscard]] Calendar calendar() const override
    {
        return Calendar(QTimeZone::systemTimeZone());
    }
};

} // namespace

const Clock &Clock::system()
{
    static const SystemClock clock;
    return clock;
}

} // namespace quorvel
