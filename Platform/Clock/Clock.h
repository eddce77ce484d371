#pragma once

#include "Platform/Clock/Calendar.h"

namespace quorvel {

/// What time it is for the user. View models, services and the repository ask it, never the system.
class Clock
{
public:
    virtual ~Clock() = default;

    [[nodiscard]] virtual Instant now() const = 0;
    /// The user's calendar as it is now: a traveller's time zone may change while the program runs.
    [[nodiscard]] virtual Calendar calendar() const = 0;

    /// The machine's own clock and time zone.
    [[nodiscard]] static const Clock &system();
};

} // namespace quorvel
