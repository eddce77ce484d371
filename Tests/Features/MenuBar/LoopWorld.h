#pragma once

#include "Core/Keychain/FakeKeychainStore.h"
#include "Features/MenuBar/MenuBarViewModel.h"
#include "Platform/Clock/FakeClock.h"
#include "Services/Location/FakeLocationService.h"
#include "Services/Places/FakePlacesService.h"
#include "Services/Weather/FakeWeatherService.h"
#include "Services/Wifi/FakeWifiService.h"
#include "Tests/Support/Instants.h"
#include "Tests/Support/RunTask.h"

#include <memory>

namespace quorvel::tests {

/// The daily loop with fakes around it, for tests of the loop and of what follows it: a user at
/// `home`, who lets the program know, with two cafés near and the sun out.
class LoopWorld final
{
public:
    using State = ViewState<LocatedSnapshot>;

    LoopWorld() { makeViewModel(); }

    /// A degree of latitude is 110.6 km at this place: the offsets below are exact to a centimetre.
    static constexpr double metersPerDegree = 110574.4;

    [[nodiscard]] static Location home(double metersNorth = 0)
    {
        return {.latitude = metersNorth / metersPerDegree,
                .longitude = 106.7,
                .accuracyMeters = 20,
                .timestamp = {}};
    }
    [[nodiscard]] static PlaceCandidate cafe(const QString &name, double distanceMeters)
    {
        return {.id = name,
                .name = name,
                .latitude = distanceMeters,
                .longitude = 2,
                .distanceMeters = distanceMeters,
                .category = QStringLiteral("Cafe"),
                .mapItemIdentifier = name};
    }
    [[nodiscard]] static WeatherSnapshot sun()
    {
        return {.temperatureC = 23, .apparentTemperatureC = 25, .weatherCode = 0, .isDay = true};
    }
    [[nodiscard]] static std::vector<PlaceCandidate> found()
    {
        return {cafe(QStringLiteral("Far"), 80), cafe(QStringLiteral("Near"), 42)};
    }
    [[nodiscard]] LocatedSnapshot full() const
    {
        return {
            .selectedCafe = cafe(QStringLiteral("Near"), 42),
            .nearbyCandidates = {cafe(QStringLiteral("Near"), 42), cafe(QStringLiteral("Far"), 80)},
            .weather = sun(),
            .ssid = wifi.ssid,
            .hasRememberedPassword = false,
            .signal = wifi.signal};
    }
    [[nodiscard]] LocatedSnapshot degraded() const
    {
        return {.ssid = wifi.ssid, .hasRememberedPassword = false, .signal = wifi.signal};
    }

    void willAuthorize() { location.authorize(AuthorizationStatus::AuthorizedAlways); }
    void willLocate(double metersNorth = 0)
    {
        willAuthorize();
        location.locate(home(metersNorth));
    }
    void willFindAll(double metersNorth = 0)
    {
        willLocate(metersNorth);
        places.calls.willSucceed(found());
        weather.calls.willSucceed(sun());
    }

    /// Lets everything happen that follows from what has been scripted.
    static void settle()
    {
        for (int turn = 0; turn < 30; ++turn)
            turnEventLoop();
    }
    void send(const MenuBarInput &input)
    {
        viewModel->send(input);
        settle();
    }
    void makeViewModel()
    {
        viewModel = std::make_unique<MenuBarViewModel>(
            MenuBarViewModel::Services{location, places, weather, wifi, keychain}, clock);
        QObject::connect(viewModel.get(), &MenuBarViewModel::stateChanged,
                         [this] { states.push_back(viewModel->state()); });
    }
    /// What was asked since this was last called: positions, searches, weathers.
    [[nodiscard]] QList<qsizetype> newCalls()
    {
        const QList<qsizetype> calls{location.calls.count(QStringLiteral("currentLocation")),
                                     qsizetype(places.calls.requests.size()),
                                     qsizetype(weather.calls.requests.size())};
        QList<qsizetype> news;
        for (qsizetype index = 0; index < calls.size(); ++index)
            news.append(calls[index] - m_seen[index]);
        m_seen = calls;
        return news;
    }
    [[nodiscard]] std::vector<State> newStates() { return std::exchange(states, {}); }

    FakeClock clock{instant(QStringLiteral("2026-11-21T12:00:00Z"))};
    FakeLocationService location;
    FakePlacesService places;
    FakeWeatherService weather;
    FakeWifiService wifi;
    FakeKeychainStore keychain;
    std::vector<State> states;
    /// Last, so that it ends before what it asks.
    std::unique_ptr<MenuBarViewModel> viewModel;

private:
    QList<qsizetype> m_seen{0, 0, 0};
};

} // namespace quorvel::tests
