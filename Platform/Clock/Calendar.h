#pragma once

#include <QDateTime>
#include <QTimeZone>

#include <chrono>
#include <optional>

namespace quorvel {

/// An absolute instant, to the millisecond, as the store keeps it.
using Instant = std::chrono::sys_time<std::chrono::milliseconds>;

/// The instants from `start` up to, not including, `end`.
struct DateInterval
{
    Instant start;
    Instant end;

    [[nodiscard]] bool contains(Instant instant) const { return instant >= start && instant < end; }
    friend bool operator==(const DateInterval &, const DateInterval &) = default;
};

/// The user's civil days and weeks: cuts absolute time at local midnights.
class Calendar final
{
public:
    explicit Calendar(const QTimeZone &zone, Qt::DayOfWeek firstWeekday = Qt::Monday);

    /// The local day that holds the instant. It lasts 23 or 25 hours where the clocks change, and
    /// begins after midnight where midnight itself is skipped.
    [[nodiscard]] DateInterval day(Instant containing) const;
    /// The day that ends where the instant's day starts; absent where time itself starts.
    [[nodiscard]] std::optional<DateInterval> dayBefore(Instant instant) const;
    /// The seven days from a first weekday on that hold the instant. A week does not end with its
    /// year, whichever of the two years counts it as its own.
    [[nodiscard]] DateInterval week(Instant containing) const;

    /// What a calendar and a clock on the wall show at the instant.
    [[nodiscard]] QDateTime localTime(Instant instant) const;

    [[nodiscard]] const QTimeZone &timeZone() const { return m_zone; }
    [[nodiscard]] Qt::DayOfWeek firstWeekday() const { return m_firstWeekday; }

private:
    [[nodiscard]] Instant startOf(QDate date) const;

    QTimeZone m_zone;
    Qt::DayOfWeek m_firstWeekday;
};

} // namespace quorvel
