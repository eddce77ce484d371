#include "Quorvel/LiveFacilities.h"

#include "Platform/Bus/SystemBus.h"
#include "Platform/Clock/Clock.h"
#include "Platform/Files/FileManager.h"
#include "Platform/Http/HttpClient.h"
#include "Platform/Location/GeoClueLocationManager.h"
#include "Platform/NotificationCenter/NotificationCenter.h"
#include "Quorvel/Endpoints.h"
#include "Services/Weather/OpenMeteoWeatherService.h"

#include <functional>
#include <memory>
#include <utility>

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
    , m_radio(SystemBus::connection())
    , m_facilities{
          .makeLocationManager =
              [] { return std::make_unique<GeoClueLocationManager>(SystemBus::connection()); },
          .map = m_map,
          .http = HttpClient::shared(),
          .weatherEndpoint = endpoints.weather.value_or(OpenMeteoWeatherService::defaultEndpoint),
          .radio = m_radio,
          .keychain = Keychain::standard(),
          .makeKeychain = &Keychain::makeDetached,
          .fileManager = FileManager::standard(),
          .clock = Clock::system(),
          .notificationCenter = NotificationCenter::standard()}
{}

void LiveFacilities::whenRadioIsRead(QObject *context, std::function<void()> action)
{
    m_radio.whenRead(context, std::move(action));
}

} // namespace quorvel
