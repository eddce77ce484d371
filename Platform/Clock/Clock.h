#pragma once

#include "Platform/Clock/Calendar.h"

#include <QLocale>

namespace quorvel {

/// The current time for the user. View models, services and the repository ask it instead of the
/// system.
class Clock
{
public:
    virtual ~Clock() = default;

    [[nodiscard]] virtual Instant now() const = 0;
    /// The user's current calendar. The time zone may change while the program runs.
    [[nodiscard]] virtual Calendar calendar() const = 0;
    /// How the user writes times and dates.
    [[nodiscard]] virtual QLocale locale() const = 0;

    /// The machine's clock and time zone, with the user's locale for times.
    [[nodiscard]] static const Clock &system();
};

} // namespace quorvel
