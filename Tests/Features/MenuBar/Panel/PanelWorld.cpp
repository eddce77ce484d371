#include "Tests/Features/MenuBar/Panel/PanelWorld.h"

#include "Models/PlaceCandidate.h"
#include "Models/WeatherSnapshot.h"

#include <vector>

namespace quorvel::tests {

PanelWorld::PanelWorld() = default;
PanelWorld::~PanelWorld() = default;

MenuBarScene PanelWorld::makeScene(Store store)
{
    return MenuBarScene(store == Store::Present ? &repository : nullptr, loop.services(), window,
                        loop.clock, center);
}

void PanelWorld::willFind(const std::vector<PlaceCandidate> &cafes, const WeatherSnapshot &weather)
{
    loop.willLocate();
    loop.places.calls.willSucceed(cafes);
    loop.weather.calls.willSucceed(weather);
}

void PanelWorld::willHear(const QList<WifiNetwork> &networks)
{
    loop.wifi.scans.willSucceed(networks);
}

void PanelWorld::isOn(const QString &ssid, qint64 rssiDBm)
{
    loop.wifi.ssid = ssid;
    loop.wifi.signal = WifiSignal(rssiDBm);
}

} // namespace quorvel::tests
