#pragma once

namespace quorvel {

class KeychainStore;
class LocationService;
class PlacesService;
class SystemWifiPasswordReader;
class WeatherService;
class WifiService;

/// The services of one daily loop and of the check-in form after it. All of them must outlive the
/// holder.
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
