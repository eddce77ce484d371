#pragma once

#include "Platform/Clock/Clock.h"

#include <QTimeZone>

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
    [[nodiscard]] Calendar calendar() const override
    {
        return Calendar(timeZone, userLocale.firstDayOfWeek());
    }
    [[nodiscard]] QLocale locale() const override { return userLocale; }

    Instant instant;
    QTimeZone timeZone;
    QLocale userLocale = QLocale::c();
};

} // namespace quorvel
