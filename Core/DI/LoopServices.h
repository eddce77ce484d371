#pragma once

#include "Core/DI/Services.h"
#include "Core/Keychain/SecItemKeychainStore.h"
#include "Services/Location/CoreLocationService.h"
#include "Services/Places/MapKitPlacesService.h"
#include "Services/Weather/OpenMeteoWeatherService.h"
#include "Services/Wifi/CoreWLANWifiService.h"
#include "Services/Wifi/Passwords/SystemWifiPasswordReader.h"

namespace quorvel {

struct Facilities;

/// Makes and owns the services of one daily loop. Each loop has its own, since a location service
/// has room for one waiter.
class LoopServices final
{
public:
    explicit LoopServices(const Facilities &facilities);

    /// They live as long as this.
    [[nodiscard]] Services roles();

private:
    CoreLocationService m_location;
    MapKitPlacesService m_places;
    OpenMeteoWeatherService m_weather;
    CoreWLANWifiService m_wifi;
    SecurityCLIWifiPasswordReader m_systemPasswords;
    SecItemKeychainStore m_keychain;
};

} // namespace quorvel
