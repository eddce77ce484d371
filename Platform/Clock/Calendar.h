#pragma once

#include <QTimeZone>

#include <chrono>

namespace quorvel {

/// An absolute instant, to the millisecond, as the store keeps it.
using Instant = std::chrono::sys_time<std::chrono::milliseconds>;

/// The instants of one calendar day: from `start` up to, not including, `end`.
struct DayInterval
{
    Instant start;
    Instant end;

    [[nodiscard]] bool contains(Instant instant) const { return instant >= start && instant < end; }
    friend bool operator==(const DayInterval &, const DayInterval &) = default;
};

/// The user's civil days: cuts absolute time at local midnights.
class Calendar final
{
public:
    explicit Calendar(const QTimeZone &zone);

    /// The local day that holds the instant. It lasts 23 or 25 hours where the clocks change, and
    /// begins after midnight where midnight itself is skipped.
    [[nodiscard]] DayInterval day(Instant containing) const;
    [[nodiscard]] const QTimeZone &timeZone() const { return m_zone; }

private:
    QTimeZone m_zone;
};

} // namespace quorvel
