#include "Features/History/HistoryViewModel.h"

#include "Features/History/List/HistoryGrouping.h"
#include "Platform/Errors/LocalizedError.h"

#include <QMetaObject>
#include <QSet>
#include <QUuid>

#include <utility>

namespace quorvel {

HistoryViewModel::HistoryViewModel(CheckInRepository &repository, const Clock &clock,
                                   NotificationCenter &notificationCenter, QObject *parent)
    : QObject(parent)
    , m_repository(repository)
    , m_clock(clock)
    , m_saveObserver(notificationCenter.observe(checkInDidSave, [this] { loadLater(); }))
{}

void HistoryViewModel::load()
{
    setState(State::loading());
    try {
        setState(State::loaded(sections()));
    } catch (const LocalizedError &error) {
        // Deliberate: a failed store reads as a network error, as at a check-in.
        setState(State::error(AppError::network(error.errorDescription())));
    }
}

HistoryViewModel::WeeklySummary HistoryViewModel::weeklySummary() const
{
    const auto *sections = m_state.loadedValue();
    if (!sections)
        return {};
    const DateInterval week = m_clock.calendar().week(m_clock.now());
    WeeklySummary summary;
    QSet<QUuid> cafes;
    for (const HistorySection &section : *sections) {
        for (const auto &checkIn : section.checkIns) {
            if (!week.contains(checkIn->date()))
                continue;
            ++summary.visits;
            if (const auto &cafe = checkIn->cafe())
                cafes.insert(cafe->id());
        }
    }
    summary.cafes = int(cafes.size());
    return summary;
}

/// In its own turn: the caller that saved continues first, and a running load ends first.
void HistoryViewModel::loadLater()
{
    QMetaObject::invokeMethod(this, &HistoryViewModel::load, Qt::QueuedConnection);
}

void HistoryViewModel::setState(State state)
{
    if (m_state == state)
        return;
    m_state = std::move(state);
    emit stateChanged();
}

HistoryViewModel::Sections HistoryViewModel::sections()
{
    auto checkIns = m_repository.allCheckIns();
    return HistoryGrouping::group(std::move(checkIns), m_clock.now(), m_clock.calendar(),
                                  m_clock.locale());
}

} // namespace quorvel
