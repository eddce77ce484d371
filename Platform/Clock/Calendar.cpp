#include "Platform/Clock/Calendar.h"

#include <QDateTime>

namespace quorvel {

namespace {

Instant instantOf(const QDateTime &dateTime)
{
    return Instant(std::chrono::milliseconds(dateTime.toMSecsSinceEpoch()));
}

} // namespace

Calendar::Calendar(QTimeZone zone)
    : m_zone(std::move(zone))
{}

DayInterval Calendar::day(Instant containing) const
{
    const auto local =
        QDateTime::fromMSecsSinceEpoch(containing.time_since_epoch().count(), m_zone);
    const QDate date = local.date();
    return {instantOf(date.startOfDay(m_zone)), instantOf(date.addDays(1).startOfDay(m_zone))};
}

} // namespace quorvel
