#include "Quorvel/LiveFacilities.h"

#include "Platform/Bus/SystemBus.h"
#include "Platform/Http/HttpClient.h"
#include "Platform/Keychain/Keychain.h"
#include "Platform/Location/GeoClueLocationManager.h"
#include "Quorvel/Endpoints.h"
#include "Services/Weather/OpenMeteoWeatherService.h"

namespace quorvel {
namespace {

QList<QUrl> mapServers(const Endpoints &endpoints)
{
    return endpoints.places ? QList<QUrl>{*endpoints.places}
                            : OverpassPointsOfInterest::defaultEndpoints;
}

} // namespace

LiveFacilities::LiveFacilities(const Endpoints &endpoints)
    : m_map(HttpClient::shared(), Clock::system(), mapServers(endpoints))
    , m_weatherEndpoint(endpoints.weather.value_or(OpenMeteoWeatherService::defaultEndpoint))
    , m_radio(SystemBus::connection())
{}

MenuBarFacilities LiveFacilities::menuBar()
{
    return {.makeLocationManager =
                [] { return std::make_unique<GeoClueLocationManager>(SystemBus::connection()); },
            .map = &m_map,
            .http = &HttpClient::shared(),
            .weatherEndpoint = m_weatherEndpoint,
            .radio = &m_radio,
            .keychain = &Keychain::standard(),
            .makeKeychain = &Keychain::makeDetached,
            .clock = &Clock::system()};
}

void LiveFacilities::whenRadioIsRead(QObject *context, std::function<void()> action)
{
    m_radio.whenRead(context, std::move(action));
}

} // namespace quorvel
