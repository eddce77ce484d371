#include "Tests/Features/MenuBar/Loop/LoopWorld.h"

#include "Models/PlaceCandidate.h"
#include "Models/WeatherSnapshot.h"
#include "Tests/Support/RunTask.h"

#include <utility>
#include <vector>

namespace quorvel::tests {

LoopWorld::LoopWorld()
{
    makeViewModel();
}

LoopWorld::~LoopWorld() = default;

Location LoopWorld::home(double metersNorth)
{
    return {.latitude = metersNorth / metersPerDegree,
            .longitude = 106.7,
            .accuracyMeters = 20,
            .timestamp = {}};
}

PlaceCandidate LoopWorld::cafe(const QString &name, double distanceMeters)
{
    return {.id = name,
            .name = name,
            .latitude = distanceMeters,
            .longitude = 2,
            .distanceMeters = distanceMeters,
            .category = QStringLiteral("Cafe"),
            .mapItemIdentifier = name};
}

WeatherSnapshot LoopWorld::sun()
{
    return {.temperatureC = 23, .apparentTemperatureC = 25, .weatherCode = 0, .isDay = true};
}

std::vector<PlaceCandidate> LoopWorld::found()
{
    return {cafe(QStringLiteral("Far"), 80), cafe(QStringLiteral("Near"), 42)};
}

LocatedSnapshot LoopWorld::full() const
{
    return {.selectedCafe = cafe(QStringLiteral("Near"), 42),
            .nearbyCandidates = {cafe(QStringLiteral("Near"), 42), cafe(QStringLiteral("Far"), 80)},
            .weather = sun(),
            .ssid = wifi.ssid,
            .hasRememberedPassword = false,
            .signal = wifi.signal};
}

LocatedSnapshot LoopWorld::degraded() const
{
    return {.ssid = wifi.ssid, .hasRememberedPassword = false, .signal = wifi.signal};
}

void LoopWorld::willAuthorize()
{
    location.authorize(AuthorizationStatus::AuthorizedAlways);
}

void LoopWorld::willLocate(double metersNorth)
{
    willAuthorize();
    location.locate(home(metersNorth));
}

void LoopWorld::willFindAll(double metersNorth)
{
    willLocate(metersNorth);
    places.calls.willSucceed(found());
    weather.calls.willSucceed(sun());
}

void LoopWorld::settle()
{
    for (int turn = 0; turn < 30; ++turn)
        turnEventLoop();
}

void LoopWorld::send(const MenuBarInput &input)
{
    viewModel->send(input);
    settle();
}

void LoopWorld::makeViewModel()
{
    viewModel = std::make_unique<MenuBarViewModel>(services(), clock);
    QObject::connect(viewModel.get(), &MenuBarViewModel::stateChanged,
                     [this] { states.push_back(viewModel->state()); });
}

QList<qsizetype> LoopWorld::newCalls()
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

std::vector<LoopWorld::State> LoopWorld::newStates()
{
    return std::exchange(states, {});
}

} // namespace quorvel::tests
