#pragma once

#include <QDate>
#include <QDateTime>
#include <QTimeZone>

#include <chrono>
#include <optional>

namespace quorvel {

/// An absolute instant in milliseconds, as the store keeps it.
using Instant = std::chrono::sys_time<std::chrono::milliseconds>;

/// The instants from `start` up to but not including `end`.
struct DateInterval
{
    Instant start;
    Instant end;

    [[nodiscard]] bool contains(Instant instant) const { return instant >= start && instant < end; }
    friend bool operator==(const DateInterval &, const DateInterval &) = default;
};

/// The user's days and weeks: divides absolute time at local midnights.
class Calendar final
{
public:
    explicit Calendar(const QTimeZone &zone, Qt::DayOfWeek firstWeekday = Qt::Monday);

    /// The local day that contains the instant. It has 23 or 25 hours when the clocks change, and
    /// begins after midnight if midnight is skipped.
    [[nodiscard]] DateInterval day(Instant containing) const;
    /// The day before the instant's day; absent at the start of time.
    [[nodiscard]] std::optional<DateInterval> dayBefore(Instant instant) const;
    /// The seven days, starting at a first weekday, that contain the instant. A week may span two
    /// years.
    [[nodiscard]] DateInterval week(Instant containing) const;

    /// The local date and time at the instant.
    [[nodiscard]] QDateTime localTime(Instant instant) const;

    [[nodiscard]] const QTimeZone &timeZone() const { return m_zone; }
    [[nodiscard]] Qt::DayOfWeek firstWeekday() const { return m_firstWeekday; }

private:
    [[nodiscard]] Instant startOf(QDate date) const;

    QTimeZone m_zone;
    Qt::DayOfWeek m_firstWeekday;
};

} // namespace quorvel
