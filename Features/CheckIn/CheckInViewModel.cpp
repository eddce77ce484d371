#include "Features/CheckIn/CheckInViewModel.h"

#include "Models/Cafe.h"
#include "Models/WorkRatings.h"
#include "Platform/Errors/LocalizedError.h"

#include <QUuid>

#include <memory>
#include <optional>

namespace quorvel {

CheckInViewModel::CheckInViewModel(CheckInRepository &checkInRepository,
                                   KeychainStore &keychainStore, const Clock &clock,
                                   NotificationCenter &notificationCenter, QObject *parent)
    : QObject(parent)
    , m_checkInRepository(checkInRepository)
    , m_keychainStore(keychainStore)
    , m_clock(clock)
    , m_notificationCenter(notificationCenter)
{}

void CheckInViewModel::refreshCheckedInTodayStatus(const std::optional<PlaceCandidate> &candidate)
{
    setSaveState(SaveState::idle());
    setHasCheckedInToday(candidate && isStoredToday(*candidate));
}

void CheckInViewModel::submit(const LocatedSnapshot &snapshot)
{
    if (m_hasCheckedInToday || m_saveState.isLoading() || !snapshot.selectedCafe)
        return;
    setSaveState(SaveState::loading());
    bool isSaved = false;
    try {
        isSaved = saveUnlessStored(snapshot);
    } catch (const LocalizedError &error) {
        return setSaveState(SaveState::error(AppError::network(error.errorDescription())));
    }
    if (isSaved)
        m_notificationCenter.post(checkInDidSave);
    // Order: no other save may start between these lines.
    setHasCheckedInToday(true);
    if (!isSaved)
        return setSaveState(SaveState::idle());
    setSaveState(SaveState::loaded(Saved()));
    clearForm();
}

void CheckInViewModel::setNote(const QString &note)
{
    if (m_note == note)
        return;
    m_note = note;
    emit noteChanged();
}

void CheckInViewModel::setRatings(const WorkRatings &ratings)
{
    if (m_ratings == ratings)
        return;
    m_ratings = ratings;
    emit ratingsChanged();
}

void CheckInViewModel::setWifiPasswordDraft(const QString &draft)
{
    if (m_wifiPasswordDraft == draft)
        return;
    m_wifiPasswordDraft = draft;
    emit wifiPasswordDraftChanged();
}

bool CheckInViewModel::saveUnlessStored(const LocatedSnapshot &snapshot)
{
    bool isStored = false;
    m_checkInRepository.inTurn([&] {
        isStored = isStoredToday(*snapshot.selectedCafe);
        if (!isStored)
            save(snapshot);
    });
    return !isStored;
}

bool CheckInViewModel::isStoredToday(const PlaceCandidate &candidate) const
{
    try {
        return m_checkInRepository.hasCheckedInToday(candidate.mapItemIdentifier) &&
               !isUnstored(candidate);
    } catch (const LocalizedError &) {
        return false; // Silent: a store that cannot tell does not keep the user from trying.
    }
}

void CheckInViewModel::save(const LocatedSnapshot &snapshot)
{
    // Order: if the password cannot be stored, the store stays untouched.
    if (!m_wifiPasswordDraft.isEmpty() && snapshot.ssid)
        m_keychainStore.savePassword(m_wifiPasswordDraft, *snapshot.ssid);
    const auto cafe = m_checkInRepository.findOrCreateCafe(*snapshot.selectedCafe);
    // Deliberate: if the visit cannot be stored, the password and the café's network stay stored.
    if (snapshot.ssid && !snapshot.ssid->isEmpty())
        cafe->setLastKnownSSID(snapshot.ssid);
    fillVisit(snapshot, cafe);
    m_checkInRepository.save(m_visit);
    m_visit.reset();
}

void CheckInViewModel::fillVisit(const LocatedSnapshot &snapshot, const std::shared_ptr<Cafe> &cafe)
{
    if (!m_visit)
        m_visit = std::make_shared<CheckIn>(QUuid::createUuid(), Instant(), QString(), std::nullopt,
                                            std::nullopt, WorkRatings(), std::nullopt, nullptr);
    m_visit->setDate(m_clock.now());
    m_visit->setRatings(m_ratings);
    m_visit->setNote(m_note);
    m_visit->setWeather(snapshot.weather);
    m_visit->setCafe(cafe);
}

bool CheckInViewModel::isUnstored(const PlaceCandidate &candidate) const
{
    return m_visit && m_visit->cafe() &&
           m_visit->cafe()->mapItemIdentifier() == candidate.mapItemIdentifier;
}

void CheckInViewModel::clearForm()
{
    setNote({});
    setRatings(initialRatings);
    setWifiPasswordDraft({});
}

void CheckInViewModel::setSaveState(const SaveState &state)
{
    if (m_saveState == state)
        return;
    m_saveState = state;
    emit saveStateChanged();
}

void CheckInViewModel::setHasCheckedInToday(bool hasCheckedIn)
{
    if (m_hasCheckedInToday == hasCheckedIn)
        return;
    m_hasCheckedInToday = hasCheckedIn;
    emit hasCheckedInTodayChanged();
}

} // namespace quorvel
