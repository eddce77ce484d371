// The time that the daily loop adds after the last answer of its services.

#include "Benchmarks/Comparison.h"
#include "Core/Keychain/FakeKeychainStore.h"
#include "Core/Support/Tasks/Task.h"
#include "Features/MenuBar/Loop/MenuBarViewModel.h"
#include "Models/PlaceCandidate.h"
#include "Models/WeatherSnapshot.h"
#include "Platform/Clock/Clock.h"
#include "Services/Location/FakeLocationService.h"
#include "Services/Places/FakePlacesService.h"
#include "Services/Weather/FakeWeatherService.h"
#include "Services/Wifi/FakeWifiService.h"
#include "Services/Wifi/Passwords/FakeSystemWifiPasswordReader.h"

#include <QCoreApplication>

#include <vector>

using namespace quorvel;
using namespace quorvel::benchmarks;
using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 301;
constexpr int cafeCount = 40;

std::vector<PlaceCandidate> cafes()
{
    std::vector<PlaceCandidate> cafes;
    cafes.reserve(cafeCount);
    for (int i = 0; i < cafeCount; ++i)
        cafes.push_back({.id = QString::number(i),
                         .name = u"Café %1"_s.arg(i),
                         .latitude = 10,
                         .longitude = 106,
                         .distanceMeters = double(100 - 2 * i),
                         .category = u"Cafe"_s,
                         .mapItemIdentifier = QString::number(i)});
    return cafes;
}

/// From the weather's answer to the state that the panel shows.
Milliseconds lastAnswerToLoaded()
{
    FakeLocationService location;
    FakePlacesService places;
    FakeWeatherService weather;
    FakeWifiService wifi;
    FakeSystemWifiPasswordReader systemPasswords;
    FakeKeychainStore keychain;
    location.authorize(AuthorizationStatus::AuthorizedAlways);
    location.locate({.latitude = 10, .longitude = 106, .accuracyMeters = 20, .timestamp = {}});
    places.calls.willSucceed(cafes());
    weather.calls.willHold();
    MenuBarViewModel viewModel({location, places, weather, wifi, systemPasswords, keychain},
                               Clock::system());
    viewModel.send(MenuBarInput::start());
    while (weather.calls.requests.empty())
        QCoreApplication::processEvents();
    return timeOf([&] {
        weather.calls.release(Outcome<WeatherSnapshot>::success({.temperatureC = 23}));
        while (!viewModel.state().loadedValue())
            QCoreApplication::processEvents();
    });
}

Milliseconds turnOfTheEventLoop()
{
    bool isOver = false;
    return timeOf([&isOver] {
        postToMainThread([&isOver] { isOver = true; });
        while (!isOver)
            QCoreApplication::processEvents();
    });
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const auto times = interleaved(rounds, lastAnswerToLoaded, turnOfTheEventLoop);
    printHeading("the daily loop, against a turn of the event loop");
    printRow("last answer to loaded", times);
    printRow("last answer to loaded", times.ours.count(), "ms", "<= 2 ms");
    return 0;
}
