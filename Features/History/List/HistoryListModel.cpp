#include "Features/History/List/HistoryListModel.h"

#include "Features/History/List/HistoryTexts.h"
#include "Models/WorkRatings.h"

#include <QHash>
#include <QModelIndex>
#include <QVariant>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

namespace quorvel {

namespace {

QList<int> scores(const WorkRatings &ratings)
{
    QList<int> result;
    for (const WorkCriterion &criterion : workCriteria)
        result.append(int(ratings.*criterion.score));
    return result;
}

} // namespace

void HistoryListModel::setSections(const std::vector<HistorySection> &sections,
                                   const Calendar &calendar, const QLocale &locale)
{
    const std::vector<Row> next = rows(sections);
    const auto begin = std::ranges::mismatch(m_rows, next).in1 - m_rows.begin();
    const auto end =
        std::mismatch(m_rows.rbegin(), m_rows.rend() - begin, next.rbegin(), next.rend() - begin);
    m_calendar = calendar;
    m_locale = locale;
    replace(begin, end.first.base() - m_rows.begin(), {next.begin() + begin, end.second.base()});
    if (!m_rows.empty())
        emit dataChanged(index(0), index(rowCount() - 1));
}

std::shared_ptr<CheckIn> HistoryListModel::visit(int row) const
{
    return row >= 0 && row < rowCount() ? m_rows[std::size_t(row)].visit : nullptr;
}

int HistoryListModel::visitBelow(int row) const
{
    for (int below = std::max(row, -1) + 1; below < rowCount(); ++below)
        if (visit(below))
            return below;
    return -1;
}

int HistoryListModel::visitAbove(int row) const
{
    int above = std::min(row, rowCount()) - 1;
    while (above >= 0 && !visit(above))
        --above;
    return std::max(above, -1);
}

int HistoryListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant HistoryListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const Row &row = m_rows[std::size_t(index.row())];
    if (role == IsHeaderRole)
        return row.visit == nullptr;
    if (row.visit)
        return data(*row.visit, role);
    return role == TitleRole ? row.header : QVariant();
}

QHash<int, QByteArray> HistoryListModel::roleNames() const
{
    return {{IsHeaderRole, "isHeader"},     {TitleRole, "title"},
            {MomentRole, "moment"},         {NoteRole, "note"},
            {HasWeatherRole, "hasWeather"}, {WeatherCodeRole, "weatherCode"},
            {IsDayRole, "isDay"},           {ScoresRole, "scores"}};
}

std::vector<HistoryListModel::Row>
HistoryListModel::rows(const std::vector<HistorySection> &sections)
{
    std::vector<Row> result;
    for (const HistorySection &section : sections) {
        result.push_back({.header = section.title});
        for (const auto &checkIn : section.checkIns)
            result.push_back({.visit = checkIn});
    }
    return result;
}

void HistoryListModel::replace(std::ptrdiff_t begin, std::ptrdiff_t oldEnd,
                               const std::vector<Row> &between)
{
    if (begin != oldEnd) {
        beginRemoveRows({}, int(begin), int(oldEnd) - 1);
        m_rows.erase(m_rows.begin() + begin, m_rows.begin() + oldEnd);
        endRemoveRows();
    }
    if (!between.empty()) {
        beginInsertRows({}, int(begin), int(begin) + int(between.size()) - 1);
        m_rows.insert(m_rows.begin() + begin, between.begin(), between.end());
        endInsertRows();
    }
}

QVariant HistoryListModel::data(const CheckIn &checkIn, int role) const
{
    const auto &weather = checkIn.weather();
    switch (role) {
    case TitleRole:
        return HistoryTexts::title(checkIn);
    case MomentRole:
        return HistoryTexts::moment(checkIn, m_calendar, m_locale);
    case NoteRole:
        return checkIn.note();
    case HasWeatherRole:
        return weather.has_value();
    case WeatherCodeRole:
        return weather ? int(weather->weatherCode) : 0;
    case IsDayRole:
        return weather && weather->isDay;
    case ScoresRole:
        return QVariant::fromValue(scores(checkIn.ratings()));
    default:
        return {};
    }
}

} // namespace quorvel
