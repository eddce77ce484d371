#pragma once

#include "Core/Keychain/SecItemKeychainStore.h"
#include "Platform/Bus/SystemBus.h"
#include "Platform/Http/HttpClient.h"
#include "Platform/Location/GeoClueLocationManager.h"
#include "Platform/PointsOfInterest/OverpassPointsOfInterest.h"
#include "Platform/Wifi/NetworkManagerWifiClient.h"
#include "Quorvel/Endpoints.h"
#include "Services/Location/CoreLocationService.h"
#include "Services/Places/MapKitPlacesService.h"
#include "Services/Weather/OpenMeteoWeatherService.h"
#include "Services/Wifi/CoreWLANWifiService.h"
#include "Services/Wifi/Passwords/SystemWifiPasswordReader.h"

#include <memory>

namespace quorvel::tests {

/// All services of the program over their live backends, on this machine or in the simulated
/// district, for the programs of this folder. Needs an application object.
struct LiveServices
{
    explicit LiveServices(const Endpoints &endpoints)
        : map(HttpClient::shared(), Clock::system(),
              endpoints.places ? QList<QUrl>{*endpoints.places}
                               : OverpassPointsOfInterest::defaultEndpoints)
        , weather(HttpClient::shared(), Clock::system(),
                  endpoints.weather.value_or(OpenMeteoWeatherService::defaultEndpoint))
    {}

    CoreLocationService location{std::make_unique<GeoClueLocationManager>(SystemBus::connection())};
    OverpassPointsOfInterest map;
    MapKitPlacesService places{map};
    OpenMeteoWeatherService weather;
    NetworkManagerWifiClient radio{SystemBus::connection()};
    CoreWLANWifiService wifi{radio};
    SecurityCLIWifiPasswordReader systemPasswords{radio};
    SecItemKeychainStore keychain{SecItemKeychainStore::wifiService, Keychain::standard()};
};

/// Returns when the network service has described the radio or failed to. Nothing announces that,
/// but a question about an unknown network is answered only then.
inline Task<> untilRadioIsKnown(LiveServices *services)
{
    const QString nobodysNetwork = QStringLiteral("unknown");
    try {
        co_await services->systemPasswords.password(nobodysNetwork);
    } catch (const LocalizedError &) {
        co_return;
    }
}

} // namespace quorvel::tests
