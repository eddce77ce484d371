#include "Platform/Clock/Calendar.h"

#include <QDateTime>

namespace quorvel {

namespace {

QDateTime localTime(qint64 milliseconds, const QTimeZone &zone)
{
    return QDateTime::fromMSecsSinceEpoch(milliseconds, zone);
}

Instant startOf(QDate date, const QTimeZone &zone)
{
    const qint64 start = date.startOfDay(zone).toMSecsSinceEpoch();
    // Where the clocks go back over midnight, Qt names the second one; the day began at the first.
    const QDateTime before = localTime(start - 1, zone);
    if (before.date() != date)
        return Instant(std::chrono::milliseconds(start));
    const QDateTime first(date, QTime(0, 0), Qt::OffsetFromUTC, before.offsetFromUtc());
    return Instant(std::chrono::milliseconds(first.toMSecsSinceEpoch()));
}

} // namespace

Calendar::Calendar(const QTimeZone &zone)
    : m_zone(zone)
{}

DayInterval Calendar::day(Instant containing) const
{
    const QDate date = localTime(containing.time_since_epoch().count(), m_zone).date();
    return {startOf(date, m_zone), startOf(date.addDays(1), m_zone)};
}

} // namespace quorvel
