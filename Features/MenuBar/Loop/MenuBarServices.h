#pragma once

#include "Core/Keychain/SecItemKeychainStore.h"
#include "Features/MenuBar/Loop/MenuBarFacilities.h"
#include "Features/MenuBar/Loop/MenuBarRoles.h"
#include "Services/Location/CoreLocationService.h"
#include "Services/Places/MapKitPlacesService.h"
#include "Services/Weather/OpenMeteoWeatherService.h"
#include "Services/Wifi/CoreWLANWifiService.h"
#include "Services/Wifi/Passwords/SystemWifiPasswordReader.h"

namespace quorvel {

/// The services of the panel, or of a command in a terminal, made for it alone, over the facilities
/// that the program picked.
class MenuBarServices final
{
public:
    explicit MenuBarServices(const MenuBarFacilities &facilities);

    /// What the daily loop asks, living as long as this.
    [[nodiscard]] MenuBarViewModel::Services loop();
    /// The same and all else that a panel asks, which needs a pasteboard and what of the system a
    /// window has.
    /// Living as long as this, and as the repository.
    [[nodiscard]] MenuBarRoles roles(CheckInRepository *checkInRepository);

private:
    MenuBarFacilities m_facilities;
    CoreLocationService m_location;
    MapKitPlacesService m_places;
    OpenMeteoWeatherService m_weather;
    CoreWLANWifiService m_wifi;
    SecurityCLIWifiPasswordReader m_systemPasswords;
    SecItemKeychainStore m_keychain;
};

} // namespace quorvel
