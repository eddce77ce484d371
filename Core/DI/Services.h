#pragma once

namespace quorvel {

class KeychainStore;
class LocationService;
class PlacesService;
class SystemWifiPasswordReader;
class WeatherService;
class WifiService;

/// The roles that one daily loop asks, and the check-in form that follows it. All of them outlive
/// whoever holds this.
struct Services
{
    LocationService &location;
    PlacesService &places;
    WeatherService &weather;
    WifiService &wifi;
    SystemWifiPasswordReader &systemPasswords;
    KeychainStore &keychain;
};

} // namespace quorvel
