#include "Features/CheckIn/LocatedScreen.h"

#include "Models/PlaceCandidate.h"
#include "Models/WorkRatings.h"

namespace quorvel {

LocatedScreen::LocatedScreen(MenuBarViewModel &menuBar, CheckInViewModel &checkIn,
                             const Services &services, Pasteboard &pasteboard, QObject *parent)
    : QObject(parent)
    , m_menuBar(menuBar)
    , m_checkIn(checkIn)
    , m_wifi({.keychainStore = services.keychain,
              .systemPasswordReader = services.systemPasswords,
              .wifiService = services.wifi,
              .pasteboard = pasteboard})
{
    connect(&menuBar, &MenuBarViewModel::stateChanged, this, &LocatedScreen::followLoop);
    connect(&checkIn, &CheckInViewModel::noteChanged, this, &LocatedScreen::noteChanged);
    connect(&checkIn, &CheckInViewModel::ratingsChanged, this, &LocatedScreen::updateRatings);
    connect(&checkIn, &CheckInViewModel::saveStateChanged, this, &LocatedScreen::checkInChanged);
    connect(&checkIn, &CheckInViewModel::hasCheckedInTodayChanged, this,
            &LocatedScreen::checkInChanged);
    connect(&checkIn, &CheckInViewModel::saveStateChanged, this, &LocatedScreen::isInUseChanged);
    connect(&m_wifi, &WifiScanSection::changed, this, &LocatedScreen::isInUseChanged);
    updateRatings();
    followLoop();
}

void LocatedScreen::appear()
{
    m_isShown = true;
    m_checkIn.refreshCheckedInTodayStatus(snapshot().selectedCafe);
    m_wifi.appear();
}

void LocatedScreen::disappear()
{
    m_isShown = false;
    m_wifi.disappear();
}

void LocatedScreen::selectCafe(int row)
{
    if (row >= 0 && std::size_t(row) < snapshot().nearbyCandidates.size())
        m_menuBar.send(MenuBarInput::selectCafe(snapshot().nearbyCandidates[std::size_t(row)]));
}

void LocatedScreen::retry()
{
    m_menuBar.send(MenuBarInput::retry());
}

void LocatedScreen::checkIn()
{
    // Lifetime: a receiver of the signal may make the screen show another place.
    const auto pressed = m_located;
    m_checkIn.submit(*pressed.loadedValue());
}

void LocatedScreen::setRating(int row, int score)
{
    if (row < 0 || std::size_t(row) >= workCriteria.size())
        return;
    if (score < WorkRatings::lowest || score > WorkRatings::highest)
        return;
    auto ratings = m_checkIn.ratings();
    ratings.*workCriteria[std::size_t(row)].score = score;
    m_checkIn.setRatings(ratings);
}

int LocatedScreen::weatherCode() const
{
    return snapshot().weather ? int(snapshot().weather->weatherCode) : 0;
}

QString LocatedScreen::errorText() const
{
    return LocatedTexts::saveError(m_checkIn.saveState().errorValue());
}

QString LocatedScreen::hintText() const
{
    return LocatedTexts::note(snapshot(), m_checkIn.hasCheckedInToday());
}

bool LocatedScreen::isInUse() const
{
    return m_isChoosingOrTyping || m_wifi.connecting() || !m_checkIn.saveState().isIdle();
}

void LocatedScreen::setChoosingOrTyping(bool isChoosingOrTyping)
{
    if (isChoosingOrTyping == m_isChoosingOrTyping)
        return;
    m_isChoosingOrTyping = isChoosingOrTyping;
    emit isInUseChanged();
}

void LocatedScreen::followLoop()
{
    const auto &state = m_menuBar.state();
    if (!state.isLoaded() || state == m_located)
        return;
    m_located = state;
    QList<CafeRow> rows;
    for (const PlaceCandidate &candidate : snapshot().nearbyCandidates)
        rows.append({.candidateId = candidate.id,
                     .name = candidate.name,
                     .distanceText = LocatedTexts::distance(candidate)});
    m_candidates.setRecords(rows);
    m_wifi.setCurrentNetwork(snapshot().ssid, snapshot().signal);
    if (m_isShown)
        m_checkIn.refreshCheckedInTodayStatus(snapshot().selectedCafe);
    emit snapshotChanged();
    emit checkInChanged();
}

void LocatedScreen::updateRatings()
{
    QList<RatingRow> rows;
    for (const WorkCriterion &criterion : workCriteria)
        rows.append({.title = criterion.title.toString(),
                     .hint = criterion.hint.toString(),
                     .score = int(m_checkIn.ratings().*criterion.score)});
    m_ratings.setRecords(rows);
}

LocatedTexts::CheckInButton LocatedScreen::button() const
{
    return LocatedTexts::button(snapshot(), m_checkIn.saveState(), m_checkIn.hasCheckedInToday());
}

} // namespace quorvel
