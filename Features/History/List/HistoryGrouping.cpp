#include "Features/History/List/HistoryGrouping.h"

#include "Features/History/List/HistoryTexts.h"

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace quorvel::HistoryGrouping {

namespace {

/// Makes the titles of visits that are mostly from the same day: each day is computed and named
/// once.
class DayTitles final
{
public:
    DayTitles(Instant now, const Calendar &calendar, const QLocale &locale)
        : m_calendar(calendar)
        , m_locale(locale)
        , m_today(calendar.day(now))
        , m_yesterday(calendar.dayBefore(now))
        , m_day(m_today)
        , m_title(name(now))
    {}

    [[nodiscard]] const QString &of(Instant date)
    {
        if (!m_day.contains(date)) {
            m_day = m_calendar.day(date);
            m_title = name(date);
        }
        return m_title;
    }

private:
    [[nodiscard]] QString name(Instant date) const
    {
        if (m_today.contains(date))
            return HistoryTexts::today();
        if (m_yesterday && m_yesterday->contains(date))
            return HistoryTexts::yesterday();
        return m_locale.toUpper(HistoryTexts::day(date, m_calendar, m_locale));
    }

    const Calendar &m_calendar;
    const QLocale &m_locale;
    DateInterval m_today;
    std::optional<DateInterval> m_yesterday;

    DateInterval m_day;
    QString m_title;
};

} // namespace

std::vector<HistorySection> group(std::vector<std::shared_ptr<CheckIn>> checkIns, Instant now,
                                  const Calendar &calendar, const QLocale &locale)
{
    std::vector<HistorySection> sections;
    DayTitles titles(now, calendar, locale);
    for (auto &checkIn : checkIns) {
        const QString &title = titles.of(checkIn->date());
        if (sections.empty() || sections.back().title != title)
            sections.push_back({.title = title, .checkIns = {}});
        sections.back().checkIns.push_back(std::move(checkIn));
    }
    return sections;
}

} // namespace quorvel::HistoryGrouping
