#pragma once

#include "Features/MenuBar/Loop/MenuBarViewModel.h"
#include "Models/PlaceCandidate.h"
#include "Models/WeatherSnapshot.h"
#include "Platform/Clock/FakeClock.h"
#include "Tests/Support/Instants.h"
#include "Tests/Support/Services/FakeServices.h"

#include <memory>
#include <vector>

namespace quorvel::tests {

/// The daily loop over fakes, for tests of the loop and of what depends on it: a user at `home` who
/// allows the location, two cafés nearby, and sunshine.
class LoopWorld final : public FakeServices
{
public:
    using State = ViewState<LocatedSnapshot>;

    LoopWorld();
    ~LoopWorld();
    Q_DISABLE_COPY_MOVE(LoopWorld)

    /// A degree of latitude is 110.6 km here. The offsets below are exact to a centimetre.
    static constexpr double metersPerDegree = 110574.4;

    [[nodiscard]] static Location home(double metersNorth = 0);
    [[nodiscard]] static PlaceCandidate cafe(const QString &name, double distanceMeters);
    [[nodiscard]] static WeatherSnapshot sun();
    [[nodiscard]] static std::vector<PlaceCandidate> found();
    [[nodiscard]] LocatedSnapshot full() const;
    [[nodiscard]] LocatedSnapshot degraded() const;

    void willAuthorize();
    void willLocate(double metersNorth = 0);
    void willFindAll(double metersNorth = 0);

    /// Runs everything that follows from the script.
    static void settle();
    void send(const MenuBarInput &input);
    void makeViewModel();
    /// The number of positions, searches and weather reports requested since the last call.
    [[nodiscard]] QList<qsizetype> newCalls();
    [[nodiscard]] std::vector<State> newStates();

    FakeClock clock{instant(QStringLiteral("2026-11-21T12:00:00Z"))};
    std::vector<State> states;
    /// Last, so that it is destroyed before its services.
    std::unique_ptr<MenuBarViewModel> viewModel;

private:
    QList<qsizetype> m_seen{0, 0, 0};
};

} // namespace quorvel::tests
