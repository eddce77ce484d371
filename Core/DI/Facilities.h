#pragma once

#include "Platform/Keychain/Keychain.h"

#include <QUrl>

#include <functional>
#include <memory>

namespace quorvel {

class Clock;
class FileManager;
class HttpClient;
class LocationManager;
class NotificationCenter;
class PointsOfInterestSearch;
class WifiClient;

/// The system that the program runs on, as `Quorvel/` picked it: all that needs no window. Handed
/// down whole; everything it refers to outlives whoever holds it.
struct Facilities
{
    /// Each location service has a manager of its own.
    std::function<std::unique_ptr<LocationManager>()> makeLocationManager;
    PointsOfInterestSearch &map;
    HttpClient &http;
    QUrl weatherEndpoint;
    WifiClient &radio;
    /// For the main thread.
    Keychain &keychain;
    KeychainMaker makeKeychain;
    const FileManager &fileManager;
    const Clock &clock;
    NotificationCenter &notificationCenter;
};

} // namespace quorvel
