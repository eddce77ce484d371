#pragma once

#include <QUrl>

#include <functional>
#include <memory>

namespace quorvel {

class Clock;
class HttpClient;
class Keychain;
class LocationManager;
class Pasteboard;
class PointsOfInterestSearch;
class SystemSettings;
class WifiClient;

/// The parts of the operating system that the panel's services stand on, as the program picked
/// them. Everything pointed to outlives the panel.
struct MenuBarFacilities
{
    /// Each location service has a manager of its own.
    std::function<std::unique_ptr<LocationManager>()> makeLocationManager = {};
    PointsOfInterestSearch *map = nullptr;
    HttpClient *http = nullptr;
    QUrl weatherEndpoint = {};
    WifiClient *radio = nullptr;
    Keychain *keychain = nullptr;
    Pasteboard *pasteboard = nullptr;
    SystemSettings *systemSettings = nullptr;
    const Clock *clock = nullptr;
};

} // namespace quorvel
