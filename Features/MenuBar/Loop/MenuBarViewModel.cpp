#include "Features/MenuBar/Loop/MenuBarViewModel.h"

#include "Core/Keychain/KeychainError.h"
#include "Core/Keychain/KeychainStore.h"
#include "Platform/Geodesy/DistanceMeters.h"
#include "Services/Location/LocationService.h"
#include "Services/Places/PlacesRanking.h"
#include "Services/Places/PlacesService.h"
#include "Services/Weather/WeatherService.h"

#include <QPointer>

#include <chrono>
#include <optional>
#include <utility>
#include <vector>

namespace quorvel {

namespace {

constexpr double radiusMeters = 100;
constexpr std::chrono::seconds staleInterval{600};

using State = ViewState<LocatedSnapshot>;

bool startsLoad(const MenuBarInput &input)
{
    return input.kind() == MenuBarInput::Case::Start || input.kind() == MenuBarInput::Case::Retry;
}

Coordinate coordinateOf(const Location &location)
{
    return {location.latitude, location.longitude};
}

Task<std::optional<Location>> locationOrNone(LocationService *service)
{
    try {
        const auto location = co_await service->currentLocation();
        co_return location;
    } catch (const AppError &) {
        // Silent: the loop has a fallback for an unknown position.
    }
    co_return std::nullopt;
}

/// Nearest first. Empty also if the search failed.
Task<std::vector<PlaceCandidate>> cafesWithinRadius(PlacesService *service, Coordinate around)
{
    try {
        auto found = co_await service->nearbyCafes(around, radiusMeters);
        co_return PlacesRanking::sortedWithinRadius(std::move(found), radiusMeters);
    } catch (const AppError &) {
        // Silent: a failed search has the same result as one that finds nothing.
    }
    co_return std::vector<PlaceCandidate>();
}

Task<std::optional<WeatherSnapshot>> weatherOrNone(WeatherService *service, Coordinate at)
{
    try {
        const auto weather = co_await service->currentWeather(at);
        co_return weather;
    } catch (const AppError &) {
        // Silent: the screen says that there is no weather.
    }
    co_return std::nullopt;
}

} // namespace

/// A running load. It holds its view model weakly. After every wait it checks whether it is still
/// the newest load.
struct MenuBarViewModel::Load
{
    QPointer<MenuBarViewModel> viewModel;
    std::stop_token stop;
    bool needsFresh;

    [[nodiscard]] bool isOver() const { return !viewModel || stop.stop_requested(); }
    /// Whether the shown result may stay if the load finds nothing better.
    [[nodiscard]] bool keepsCache() const
    {
        return !needsFresh && viewModel->m_lastSnapshot.isLoaded();
    }
};

MenuBarViewModel::MenuBarViewModel(const Services &services, const Clock &clock, QObject *parent)
    : QObject(parent)
    , m_services(services)
    , m_clock(clock)
{}

MenuBarViewModel::~MenuBarViewModel()
{
    m_loadTask.request_stop();
}

void MenuBarViewModel::send(const MenuBarInput &input)
{
    m_loadTask.request_stop();
    m_loadTask = std::stop_source();
    postToMainThread([self = QPointer(this), input, stop = m_loadTask.get_token()] {
        if (self)
            self->run(input, stop);
    });
    setLocating(startsLoad(input));
}

void MenuBarViewModel::run(const MenuBarInput &input, const std::stop_token &stop)
{
    switch (input.kind()) {
    case MenuBarInput::Case::Start:
        return locateAndLoad(ForceRefresh::No, stop);
    case MenuBarInput::Case::Retry:
        return locateAndLoad(ForceRefresh::Yes, stop);
    case MenuBarInput::Case::SelectCafe:
        return selectCafe(input.candidate());
    case MenuBarInput::Case::Cancel:
        return; // It was sent, which is all that it takes.
    }
}

void MenuBarViewModel::locateAndLoad(ForceRefresh forceRefresh, const std::stop_token &stop)
{
    const Load load{this, stop, needsFresh(forceRefresh)};
    if (load.isOver())
        return;
    const bool paintsCache = forceRefresh == ForceRefresh::No && m_lastSnapshot.isLoaded();
    setState(paintsCache ? m_lastSnapshot : State::loading());
    if (!load.isOver())
        spawn(locateToEnd(load));
}

Task<> MenuBarViewModel::locateToEnd(Load load)
{
    co_await locate(load);
    if (!load.isOver())
        load.viewModel->setLocating(false);
}

Task<> MenuBarViewModel::locate(Load load)
{
    auto *service = &load.viewModel->m_services.location;
    const auto status = co_await service->requestAuthorization();
    if (load.isOver())
        co_return;
    if (status != AuthorizationStatus::AuthorizedAlways) {
        if (!load.keepsCache())
            load.viewModel->setState(State::error(AppError::locationDenied()));
        co_return;
    }
    const auto location = co_await locationOrNone(service);
    if (load.isOver())
        co_return;
    if (!location) {
        if (!load.keepsCache())
            load.viewModel->setState(State::loaded(load.viewModel->degradedSnapshot()));
        co_return;
    }
    if (load.viewModel->isReusable(load, *location)) {
        load.viewModel->setState(load.viewModel->m_lastSnapshot);
        co_return;
    }
    const Location here = *location;
    co_await search(load, here);
}

Task<> MenuBarViewModel::search(Load load, Location location)
{
    auto *service = &load.viewModel->m_services.places;
    const auto around = coordinateOf(location);
    const auto candidates = co_await cafesWithinRadius(service, around);
    if (load.isOver())
        co_return;
    if (candidates.empty()) {
        if (!load.keepsCache())
            load.viewModel->setState(State::loaded(load.viewModel->degradedSnapshot()));
        co_return;
    }
    co_await loadDetails(load, candidates, location);
}

Task<> MenuBarViewModel::loadDetails(Load load, std::vector<PlaceCandidate> candidates,
                                     Location location)
{
    auto *service = &load.viewModel->m_services.weather;
    auto weatherTask = weatherOrNone(service, candidates.front().coordinate());
    // Order: read the network's name while the weather is requested, and the rest after that.
    const auto ssid = load.viewModel->m_services.wifi.currentSSID();
    const auto weather = co_await weatherTask;
    if (load.isOver())
        co_return;
    auto &self = *load.viewModel;
    auto snapshot = self.snapshotOn(ssid);
    snapshot.selectedCafe = candidates.front();
    snapshot.nearbyCandidates = std::move(candidates);
    snapshot.weather = weather;
    // Order: complete the cache first, since a receiver of the new state may send at once.
    self.m_lastSnapshot = State::loaded(std::move(snapshot));
    self.m_lastLocation = location;
    self.m_lastSnapshotAt = self.m_clock.now();
    self.setState(self.m_lastSnapshot);
}

void MenuBarViewModel::selectCafe(const PlaceCandidate &candidate)
{
    const auto *shown = m_state.loadedValue();
    if (!shown)
        return;
    // Deliberate: the weather stays that of the nearest café. A fallback snapshot counts as a full
    // one from now on.
    auto snapshot = *shown;
    snapshot.selectedCafe = candidate;
    m_lastSnapshot = State::loaded(std::move(snapshot));
    m_lastSnapshotAt = m_clock.now();
    setState(m_lastSnapshot);
}

bool MenuBarViewModel::needsFresh(ForceRefresh forceRefresh) const
{
    if (!m_lastSnapshotAt || forceRefresh == ForceRefresh::Yes)
        return true;
    return m_clock.now() - *m_lastSnapshotAt > staleInterval;
}

bool MenuBarViewModel::isReusable(const Load &load, const Location &location) const
{
    if (!load.keepsCache() || !m_lastLocation)
        return false;
    return distanceMeters(coordinateOf(location), coordinateOf(*m_lastLocation)) <= radiusMeters;
}

LocatedSnapshot MenuBarViewModel::degradedSnapshot()
{
    return snapshotOn(m_services.wifi.currentSSID());
}

LocatedSnapshot MenuBarViewModel::snapshotOn(const std::optional<QString> &ssid)
{
    return {.ssid = ssid,
            .hasRememberedPassword = hasRememberedPassword(ssid),
            .signal = m_services.wifi.currentSignal()};
}

bool MenuBarViewModel::hasRememberedPassword(const std::optional<QString> &ssid)
{
    try {
        return ssid && m_services.keychain.password(*ssid).has_value();
    } catch (const KeychainError &) {
        return false; // Silent: a keychain that does not answer remembers nothing.
    }
}

void MenuBarViewModel::setState(State state)
{
    if (state == m_state)
        return;
    m_state = std::move(state);
    emit stateChanged();
}

void MenuBarViewModel::setLocating(bool isLocating)
{
    if (isLocating == m_isLocating)
        return;
    m_isLocating = isLocating;
    emit isLocatingChanged();
}

} // namespace quorvel
