#pragma once

#include "Core/Keychain/FakeKeychainStore.h"
#include "Features/MenuBar/Loop/MenuBarViewModel.h"
#include "Platform/Clock/FakeClock.h"
#include "Services/Location/FakeLocationService.h"
#include "Services/Places/FakePlacesService.h"
#include "Services/Weather/FakeWeatherService.h"
#include "Services/Wifi/FakeWifiService.h"
#include "Tests/Support/Instants.h"

#include <memory>

namespace quorvel::tests {

/// The daily loop with fakes around it, for tests of the loop and of what follows it: a user at
/// `home`, who lets the program know, with two cafés near and the sun out.
class LoopWorld final
{
public:
    using State = ViewState<LocatedSnapshot>;

    LoopWorld();
    ~LoopWorld();
    Q_DISABLE_COPY_MOVE(LoopWorld)

    /// A degree of latitude is 110.6 km at this place: the offsets below are exact to a centimetre.
    static constexpr double metersPerDegree = 110574.4;

    [[nodiscard]] static Location home(double metersNorth = 0);
    [[nodiscard]] static PlaceCandidate cafe(const QString &name, double distanceMeters);
    [[nodiscard]] static WeatherSnapshot sun();
    [[nodiscard]] static std::vector<PlaceCandidate> found();
    [[nodiscard]] LocatedSnapshot full() const;
    [[nodiscard]] LocatedSnapshot degraded() const;

    /// What the loop asks.
    [[nodiscard]] MenuBarViewModel::Services services();

    void willAuthorize();
    void willLocate(double metersNorth = 0);
    void willFindAll(double metersNorth = 0);

    /// Lets everything happen that follows from what has been scripted.
    static void settle();
    void send(const MenuBarInput &input);
    void makeViewModel();
    /// What was asked since this was last called: positions, searches, weathers.
    [[nodiscard]] QList<qsizetype> newCalls();
    [[nodiscard]] std::vector<State> newStates();

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
