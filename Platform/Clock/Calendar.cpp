#include "Platform/Clock/Calendar.h"

#include <QDate>
#include <QTime>

namespace quorvel {

namespace {

constexpr int daysOfWeek = 7;

} // namespace

Calendar::Calendar(const QTimeZone &zone, Qt::DayOfWeek firstWeekday)
    : m_zone(zone)
    , m_firstWeekday(firstWeekday)
{}

DateInterval Calendar::day(Instant containing) const
{
    const QDate date = localTime(containing).date();
    return {startOf(date), startOf(date.addDays(1))};
}

std::optional<DateInterval> Calendar::dayBefore(Instant instant) const
{
    const Instant start = day(instant).start;
    if (start == Instant::min())
        return std::nullopt;
    return day(start - std::chrono::milliseconds(1));
}

DateInterval Calendar::week(Instant containing) const
{
    const QDate date = localTime(containing).date();
    const int daysInto = (date.dayOfWeek() - m_firstWeekday + daysOfWeek) % daysOfWeek;
    const QDate first = date.addDays(-daysInto);
    return {startOf(first), startOf(first.addDays(daysOfWeek))};
}

QDateTime Calendar::localTime(Instant instant) const
{
    return QDateTime::fromMSecsSinceEpoch(instant.time_since_epoch().count(), m_zone);
}

Instant Calendar::startOf(QDate date) const
{
    QDateTime start = date.startOfDay(m_zone);
    if (!start.isValid() && date == localTime(Instant::min()).date())
        return Instant::min();
    // Samoa crossed the date line and had no 30 December 2011.
    if (!start.isValid())
        start = date.addDays(1).startOfDay(m_zone);
    if (!start.isValid())
        return Instant::max();
    const Instant named{std::chrono::milliseconds(start.toMSecsSinceEpoch())};
    // If the clocks go back over midnight, Qt returns the second midnight. The day began at the
    // first.
    const QDateTime before = localTime(named - std::chrono::milliseconds(1));
    if (before.date() != date)
        return named;
    const QDateTime first(date, QTime(0, 0), Qt::OffsetFromUTC, before.offsetFromUtc());
    return Instant(std::chrono::milliseconds(first.toMSecsSinceEpoch()));
}

} // namespace quorvel
