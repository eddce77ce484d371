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
class SystemEvents;
class SystemSettings;
class WifiClient;

/// The parts of the operating system that the panel's services stand on, and what the history
/// reads, as the program picked them; a program without a window has no pasteboard, system settings
/// or system events. Everything pointed to outlives both.
struct MenuBarFacilities
{
    /// Each location service has a manager of its own.
    std::function<std::unique_ptr<LocationManager>()> makeLocationManager = {};
    PointsOfInterestSearch *map = nullptr;
    HttpClient *http = nullptr;
    QUrl weatherEndpoint = {};
    WifiClient *radio = nullptr;
    Keychain *keychain = nullptr;
    /// The same keychain for another thread, to be called there.
    std::function<std::unique_ptr<Keychain>()> makeKeychain = {};
    Pasteboard *pasteboard = nullptr;
    SystemSettings *systemSettings = nullptr;
    SystemEvents *systemEvents = nullptr;
    const Clock *clock = nullptr;
};

} // namespace quorvel
