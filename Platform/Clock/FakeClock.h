#pragma once

#include "Platform/Clock/Clock.h"

namespace quorvel {

/// A clock that stands still until a test moves it.
class FakeClock final : public Clock
{
public:
    explicit FakeClock(Instant now, const QTimeZone &zone = QTimeZone::utc())
        : instant(now)
        , timeZone(zone)
    {}

    [[nodiscard]] Instant now() const override { return instant; }
    [[nodiscard]] Calendar calendar() const override { return Calendar(timeZone); }

    Instant instant;
    QTimeZone timeZone;
};

} // namespace quorvel
