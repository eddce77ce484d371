#pragma once

#include "Core/Persistence/CheckInRepository.h"
#include "Core/Support/ViewState.h"
#include "Features/History/List/HistorySection.h"
#include "Platform/Clock/Clock.h"
#include "Platform/NotificationCenter/NotificationCenter.h"

#include <QObject>

#include <vector>

namespace quorvel {

/// The content of the history: all visits in sections, loaded on request and after every check-in.
/// It changes nothing. Its signal reports real changes only.
class HistoryViewModel final : public QObject
{
    Q_OBJECT

public:
    using Sections = std::vector<HistorySection>;
    using State = ViewState<Sections>;

    /// A summary of the visits in the user's current week.
    struct WeeklySummary
    {
        int visits = 0;
        int cafes = 0; ///< different ones

        friend bool operator==(const WeeklySummary &, const WeeklySummary &) = default;
    };

    /// All of these must outlive the view model.
    HistoryViewModel(CheckInRepository &repository, const Clock &clock,
                     NotificationCenter &notificationCenter, QObject *parent = nullptr);

    /// Reads all visits again before it returns. A failure replaces the old result.
    void load();

    [[nodiscard]] const State &state() const { return m_state; }
    /// Counts at the time of the call; nothing unless loaded.
    [[nodiscard]] WeeklySummary weeklySummary() const;

signals:
    void stateChanged();

private:
    void loadLater();
    void setState(State state);
    /// Throws the store's error.
    [[nodiscard]] Sections sections();

    CheckInRepository &m_repository;
    const Clock &m_clock;

    State m_state = State::idle();
    NotificationCenter::Observation m_saveObserver;
};

} // namespace quorvel
