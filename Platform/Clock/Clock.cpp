#include "Platform/Clock/Clock.h"

#include <chrono>

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
        return Calendar(QTimeZone::systemTimeZone(), locale().firstDayOfWeek());
    }
    // QLocale::system() takes the first weekday from the locale for numbers.
    [[nodiscard]] QLocale locale() const override
    {
        for (const char *variable : {"LC_ALL", "LC_TIME", "LANG"}) {
            const QString name = qEnvironmentVariable(variable);
            if (!name.isEmpty())
                return QLocale(name);
        }
        return QLocale::c();
    }
};

} // namespace

const Clock &Clock::system()
{
    static const SystemClock clock;
    return clock;
}

} // namespace quorvel
