#pragma once

#include "Features/History/HistoryViewModel.h"
#include "Features/History/List/HistoryListModel.h"
#include "Features/History/Visit/VisitDetail.h"
#include "Models/CheckIn.h"
#include "Platform/Pasteboard/Pasteboard.h"

#include <QAbstractItemModel>
#include <QVariant>
#include <qqmlintegration.h>

#include <memory>
#include <optional>

namespace quorvel {

/// The history for its view: the content of the window, the week's summary, and the open visit. The
/// view model also serves the terminal and knows no view.
class HistoryScreen final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the window")
    Q_PROPERTY(Kind kind READ kind NOTIFY changed)
    Q_PROPERTY(QString summaryText READ summaryText NOTIFY changed)
    Q_PROPERTY(QString errorText READ errorText NOTIFY changed)
    Q_PROPERTY(QObject *rows READ rows CONSTANT)
    Q_PROPERTY(QList<QString> ratingLabels READ ratingLabels CONSTANT)
    Q_PROPERTY(bool isVisitOpen READ isVisitOpen NOTIFY selectedChanged)
    Q_PROPERTY(QVariantList openVisits READ openVisits NOTIFY selectedChanged)

public:
    /// There is no store to read.
    enum class Kind { Nothing, Waiting, Failed, Empty, List };
    Q_ENUM(Kind)

    /// The repository is null if the store could not be opened. All of these must outlive the
    /// screen.
    HistoryScreen(CheckInRepository *checkInRepository, const Facilities &facilities,
                  Pasteboard &pasteboard, CardRenderer renderCard, QObject *parent = nullptr);

    /// Call it whenever the window is shown. Each call loads again.
    Q_INVOKABLE void appear();
    /// By row of the list. A header or a row that no longer exists opens nothing.
    Q_INVOKABLE void openVisit(int row);
    Q_INVOKABLE void closeVisit();
    /// The next row in this direction that has a visit; -1 if there is none.
    [[nodiscard]] Q_INVOKABLE int visitBelow(int row) const { return m_rows.visitBelow(row); }
    [[nodiscard]] Q_INVOKABLE int visitAbove(int row) const { return m_rows.visitAbove(row); }

    [[nodiscard]] Kind kind() const;
    /// Empty before the first load, and without a store.
    [[nodiscard]] const QString &summaryText() const { return m_summaryText; }
    /// Why there is no list; empty unless the load failed.
    [[nodiscard]] QString errorText() const;
    [[nodiscard]] QAbstractItemModel *rows() { return &m_rows; }
    /// The labels of the rows' scores, in their order.
    [[nodiscard]] static QStringList ratingLabels();
    [[nodiscard]] bool isVisitOpen() const { return m_visit != nullptr; }
    /// The VisitDetail of the open visit, or no element. A list, because each visit gets its own
    /// view.
    [[nodiscard]] QVariantList openVisits() const;
    /// Null while the list is shown.
    [[nodiscard]] VisitDetail *openVisit() const { return m_visit.get(); }
    /// Null while the list is shown.
    [[nodiscard]] std::shared_ptr<CheckIn> selected() const;

signals:
    void changed();
    void selectedChanged();

private:
    void follow();
    void select(std::shared_ptr<CheckIn> visit);

    CheckInRepository *m_checkInRepository;
    const Facilities &m_facilities;
    Pasteboard &m_pasteboard;
    CardRenderer m_renderCard;

    /// Absent before the first load, and without a store.
    std::optional<HistoryViewModel> m_viewModel;
    HistoryListModel m_rows;
    QString m_summaryText;
    /// Null while the list is shown.
    std::unique_ptr<VisitDetail> m_visit;
};

} // namespace quorvel
