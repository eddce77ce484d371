#pragma once

#include "Core/Keychain/KeychainStore.h"
#include "Core/Persistence/CheckInRepository.h"
#include "Core/Support/ViewState.h"
#include "Features/MenuBar/Loop/LocatedSnapshot.h"
#include "Models/Cafe.h"
#include "Models/WorkRatings.h"
#include "Platform/Clock/Clock.h"
#include "Platform/NotificationCenter/NotificationCenter.h"

#include <QObject>

#include <memory>
#include <optional>

namespace quorvel {

/// The form of the check-in screen. Saving it stores a visit and posts `checkInDidSave`. Signals
/// report real changes only.
class CheckInViewModel final : public QObject
{
    Q_OBJECT

public:
    struct Saved
    {
        friend bool operator==(const Saved &, const Saved &) = default;
    };
    using SaveState = ViewState<Saved>;

    static constexpr WorkRatings initialRatings{
        .wifiSpeed = 3, .outlets = 3, .noise = 3, .quietForCalls = 3};

    /// All of these must outlive the view model.
    CheckInViewModel(CheckInRepository &checkInRepository, KeychainStore &keychainStore,
                     const Clock &clock, NotificationCenter &notificationCenter,
                     QObject *parent = nullptr);

    /// Call it whenever another café, or none, is on screen.
    void refreshCheckedInTodayStatus(const std::optional<PlaceCandidate> &candidate);

    /// Saves the visit. It does nothing without a café, if today's visit is already stored (also by
    /// another process), or while another save runs; the screen says why. The snapshot must not
    /// change until this returns.
    void submit(const LocatedSnapshot &snapshot);

    void setNote(const QString &note);
    void setRatings(const WorkRatings &ratings);
    void setWifiPasswordDraft(const QString &draft);

    [[nodiscard]] const QString &note() const { return m_note; }
    [[nodiscard]] const WorkRatings &ratings() const { return m_ratings; }
    [[nodiscard]] const QString &wifiPasswordDraft() const { return m_wifiPasswordDraft; }
    [[nodiscard]] const SaveState &saveState() const { return m_saveState; }
    [[nodiscard]] bool hasCheckedInToday() const { return m_hasCheckedInToday; }

signals:
    void noteChanged();
    void ratingsChanged();
    void wifiPasswordDraftChanged();
    void saveStateChanged();
    void hasCheckedInTodayChanged();

private:
    /// Returns false if today's visit at the café is already stored. Throws LocalizedError.
    [[nodiscard]] bool saveUnlessStored(const LocatedSnapshot &snapshot);
    [[nodiscard]] bool isStoredToday(const PlaceCandidate &candidate) const;
    /// Throws LocalizedError.
    void save(const LocatedSnapshot &snapshot);
    void fillVisit(const LocatedSnapshot &snapshot, const std::shared_ptr<Cafe> &cafe);
    /// Whether today's visit is the one that could not be stored. The store counts it too, but the
    /// user must be able to try again.
    [[nodiscard]] bool isUnstored(const PlaceCandidate &candidate) const;
    void clearForm();
    void setSaveState(const SaveState &state);
    void setHasCheckedInToday(bool hasCheckedIn);

    CheckInRepository &m_checkInRepository;
    KeychainStore &m_keychainStore;
    const Clock &m_clock;
    NotificationCenter &m_notificationCenter;

    QString m_note;
    WorkRatings m_ratings = initialRatings;
    QString m_wifiPasswordDraft;
    SaveState m_saveState = SaveState::idle();
    bool m_hasCheckedInToday = false;
    /// The visit until it is stored. After a failed save the store keeps it for its next save. So
    /// the next try saves this same visit, not a second one.
    std::shared_ptr<CheckIn> m_visit;
};

} // namespace quorvel
