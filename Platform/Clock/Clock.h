#pragma once

#include "Platform/Clock/Calendar.h"

#include <QLocale>

namespace quorvel {

/// What time it is for the user. View models, services and the repository ask it, never the system.
class Clock
{
public:
    virtual ~Clock() = default;

    [[nodiscard]] virtual Instant now() const = 0;
    /// The user's calendar as it is now: a traveller's time zone may change while the program runs.
    [[nodiscard]] virtual Calendar calendar() const = 0;
    /// How the user writes times and days.
    [[nodiscard]] virtual QLocale locale() const = 0;

    /// The machine's own clock and time zone, with the locale that its user set for times.
    [[nodiscard]] static const Clock &system();
};

} // namespace quorvel
