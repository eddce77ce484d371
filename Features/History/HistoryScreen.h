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

/// The history as its view binds it: what fills the window, the week in a line, and which visit is
/// open. The view model serves the terminal, too, and knows of no view.
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
    /// Nothing is there without a store to read.
    enum class Kind { Nothing, Waiting, Failed, Empty, List };
    Q_ENUM(Kind)

    /// The repository is null when the store could not be opened. All of these outlive the screen.
    HistoryScreen(CheckInRepository *checkInRepository, const Facilities &facilities,
                  Pasteboard &pasteboard, CardRenderer renderCard, QObject *parent = nullptr);

    /// To be called whenever the window is shown: each time loads again.
    Q_INVOKABLE void appear();
    /// By the list's row. A header opens nothing, nor does a row that is gone meanwhile.
    Q_INVOKABLE void openVisit(int row);
    Q_INVOKABLE void closeVisit();
    /// Which row is next for who goes through the visits; -1 when there is none.
    [[nodiscard]] Q_INVOKABLE int visitBelow(int row) const { return m_rows.visitBelow(row); }
    [[nodiscard]] Q_INVOKABLE int visitAbove(int row) const { return m_rows.visitAbove(row); }

    [[nodiscard]] Kind kind() const;
    /// Empty before the first showing, and without a store.
    [[nodiscard]] const QString &summaryText() const { return m_summaryText; }
    /// Why there is no list; empty unless the load failed.
    [[nodiscard]] QString errorText() const;
    [[nodiscard]] QAbstractItemModel *rows() { return &m_rows; }
    /// Of the rows' scores, in their order.
    [[nodiscard]] static QStringList ratingLabels();
    [[nodiscard]] bool isVisitOpen() const { return m_visit != nullptr; }
    /// The VisitDetail of the open one, or none: a list, because each has a view of its own.
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

    /// Absent before the first showing, and without a store.
    std::optional<HistoryViewModel> m_viewModel;
    HistoryListModel m_rows;
    QString m_summaryText;
    /// Null while the list is shown.
    std::unique_ptr<VisitDetail> m_visit;
};

} // namespace quorvel
