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

/// The system that the program runs on, as `Quorvel/` picked it, without what only windows need. It
/// is handed down whole. Everything that it refers to must outlive its holders.
struct Facilities
{
    /// Each location service has its own manager.
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
