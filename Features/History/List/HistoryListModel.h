#pragma once

#include "Features/History/List/HistorySection.h"
#include "Platform/Clock/Calendar.h"

#include <QAbstractListModel>
#include <QHash>
#include <QLocale>
#include <QModelIndex>
#include <QVariant>

#include <cstddef>
#include <memory>
#include <vector>

namespace quorvel {

/// The sections of the history as one flat list for a view: each header, then its visits. Texts are
/// made when a view asks for them. New sections change only the rows between the common start and
/// the common end, so that the list keeps its position when a visit is added on top.
class HistoryListModel final : public QAbstractListModel
{
    Q_OBJECT

public:
    /// A header has only its title.
    enum Role {
        IsHeaderRole = Qt::UserRole,
        TitleRole, ///< the section's, or the café's name
        MomentRole,
        NoteRole,
        HasWeatherRole,
        WeatherCodeRole,
        IsDayRole,
        ScoresRole ///< in the order of workCriteria
    };

    using QAbstractListModel::QAbstractListModel;

    /// The calendar and the locale of all later texts.
    void setSections(const std::vector<HistorySection> &sections, const Calendar &calendar,
                     const QLocale &locale);
    /// Null for a header and for a row that does not exist.
    [[nodiscard]] std::shared_ptr<CheckIn> visit(int row) const;
    /// The next row with a visit after `row`, which need not exist; -1 at the end.
    [[nodiscard]] int visitBelow(int row) const;
    [[nodiscard]] int visitAbove(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    /// One line of the list.
    struct Row
    {
        QString header = {}; ///< of a section; empty for a visit
        std::shared_ptr<CheckIn> visit = {};

        friend bool operator==(const Row &, const Row &) = default;
    };

    [[nodiscard]] static std::vector<Row> rows(const std::vector<HistorySection> &sections);
    void replace(std::ptrdiff_t begin, std::ptrdiff_t oldEnd, const std::vector<Row> &between);
    [[nodiscard]] QVariant data(const CheckIn &checkIn, int role) const;

    std::vector<Row> m_rows;
    Calendar m_calendar{QTimeZone::utc()};
    QLocale m_locale;
};

} // namespace quorvel
