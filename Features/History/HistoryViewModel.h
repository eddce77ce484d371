#pragma once

#include "Core/Persistence/CheckInRepository.h"
#include "Core/Support/ViewState.h"
#include "Features/History/List/HistorySection.h"
#include "Platform/Clock/Clock.h"
#include "Platform/NotificationCenter/NotificationCenter.h"

#include <QObject>

#include <vector>

namespace quorvel {

/// What the history lists: all visits in sections, loaded when asked and again after every check-in
/// that is saved elsewhere. It changes nothing. The signal tells of real changes only.
class HistoryViewModel final : public QObject
{
    Q_OBJECT

public:
    using Sections = std::vector<HistorySection>;
    using State = ViewState<Sections>;

    /// How much of the history is in the user's current week.
    struct WeeklySummary
    {
        int visits = 0;
        int cafes = 0; ///< different ones

        friend bool operator==(const WeeklySummary &, const WeeklySummary &) = default;
    };

    /// All of these outlive the view model.
    HistoryViewModel(CheckInRepository &repository, const Clock &clock,
                     NotificationCenter &notificationCenter, QObject *parent = nullptr);

    /// Reads every visit anew, before it returns. A failure takes the place of what was there.
    void load();

    [[nodiscard]] const State &state() const { return m_state; }
    /// Counted now; nothing unless loaded.
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
