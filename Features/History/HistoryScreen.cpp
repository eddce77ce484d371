#include "Features/History/HistoryScreen.h"

#include "Features/History/List/HistoryTexts.h"
#include "Models/CheckIn.h"
#include "Platform/Pasteboard/Pasteboard.h"

#include <QVariant>

#include <memory>
#include <utility>

namespace quorvel {

HistoryScreen::HistoryScreen(CheckInRepository *checkInRepository, const Facilities &facilities,
                             Pasteboard &pasteboard, CardRenderer renderCard, QObject *parent)
    : QObject(parent)
    , m_checkInRepository(checkInRepository)
    , m_facilities(facilities)
    , m_pasteboard(pasteboard)
    , m_renderCard(std::move(renderCard))
{}

void HistoryScreen::appear()
{
    if (!m_checkInRepository)
        return;
    if (!m_viewModel) {
        m_viewModel.emplace(*m_checkInRepository, m_facilities.clock,
                            m_facilities.notificationCenter);
        connect(&*m_viewModel, &HistoryViewModel::stateChanged, this, &HistoryScreen::follow);
    }
    m_viewModel->load();
}

void HistoryScreen::openVisit(int row)
{
    if (auto visit = m_rows.visit(row))
        select(std::move(visit));
}

void HistoryScreen::closeVisit()
{
    select(nullptr);
}

HistoryScreen::Kind HistoryScreen::kind() const
{
    if (!m_viewModel)
        return Kind::Nothing;
    const auto &state = m_viewModel->state();
    if (state.isError())
        return Kind::Failed;
    if (!state.isLoaded())
        return Kind::Waiting;
    return HistoryTexts::isEmpty(state) ? Kind::Empty : Kind::List;
}

QString HistoryScreen::errorText() const
{
    return m_viewModel ? HistoryTexts::loadError(m_viewModel->state().errorValue()) : QString();
}

QStringList HistoryScreen::ratingLabels()
{
    QStringList labels;
    for (const WorkCriterion &criterion : workCriteria)
        labels.append(criterion.rowLabel.toString());
    return labels;
}

QVariantList HistoryScreen::openVisits() const
{
    return m_visit ? QVariantList{QVariant::fromValue(m_visit.get())} : QVariantList();
}

std::shared_ptr<CheckIn> HistoryScreen::selected() const
{
    return m_visit ? m_visit->checkIn() : nullptr;
}

void HistoryScreen::follow()
{
    const auto &state = m_viewModel->state();
    // The rows stay during a load, so that the list keeps its position.
    if (!state.isLoading()) {
        const auto *sections = state.loadedValue();
        m_rows.setSections(sections ? *sections : HistoryViewModel::Sections(),
                           m_facilities.clock.calendar(), m_facilities.clock.locale());
    }
    m_summaryText = HistoryTexts::weeklySummary(m_viewModel->weeklySummary());
    emit changed();
}

void HistoryScreen::select(std::shared_ptr<CheckIn> visit)
{
    if (selected() == visit)
        return;
    auto next = visit ? std::make_unique<VisitDetail>(std::move(visit), m_facilities, m_pasteboard,
                                                      m_renderCard)
                      : nullptr;
    auto previous = std::exchange(m_visit, std::move(next));
    emit selectedChanged();
    if (m_visit)
        m_visit->load();
    // Lifetime: its view is destroyed in the next turn of the event loop, and reads it until then.
    if (previous)
        previous.release()->deleteLater();
}

} // namespace quorvel
