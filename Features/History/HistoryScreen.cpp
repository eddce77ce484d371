#include "Features/History/HistoryScreen.h"

#include "Features/History/HistoryTexts.h"

namespace quorvel {

HistoryScreen::HistoryScreen(CheckInRepository *repository, const Clock &clock,
                             NotificationCenter &notificationCenter, QObject *parent)
    : QObject(parent)
    , m_repository(repository)
    , m_clock(clock)
    , m_notificationCenter(notificationCenter)
{}

void HistoryScreen::appear()
{
    if (!m_repository)
        return;
    if (!m_viewModel) {
        m_viewModel.emplace(*m_repository, m_clock, m_notificationCenter);
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
    return m_viewModel ? HistoryTexts::loadError(m_viewModel->state()) : QString();
}

QString HistoryScreen::emptyTitle()
{
    return HistoryTexts::emptyTitle();
}

QString HistoryScreen::emptyHint()
{
    return HistoryTexts::emptyHint();
}

QStringList HistoryScreen::ratingLabels()
{
    QStringList labels;
    for (const auto &rating : HistoryTexts::ratings())
        labels.append(rating.label);
    return labels;
}

void HistoryScreen::follow()
{
    const auto &state = m_viewModel->state();
    // The rows outlast a load, so that the list is where it was when it comes back.
    if (!state.isLoading()) {
        const auto *sections = state.loadedValue();
        m_rows.setSections(sections ? *sections : HistoryViewModel::Sections(), m_clock.calendar(),
                           m_clock.locale());
    }
    m_summaryText = HistoryTexts::weeklySummary(m_viewModel->weeklySummary());
    emit changed();
}

void HistoryScreen::select(std::shared_ptr<CheckIn> visit)
{
    if (m_selected == visit)
        return;
    m_selected = std::move(visit);
    emit selectedChanged();
}

} // namespace quorvel
