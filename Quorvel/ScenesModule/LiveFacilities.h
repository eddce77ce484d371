#pragma once

#include "Features/MenuBar/MenuBarFacilities.h"
#include "Platform/Pasteboard/QtPasteboard.h"
#include "Platform/PointsOfInterest/OverpassPointsOfInterest.h"
#include "Platform/SystemSettings/DesktopSystemSettings.h"
#include "Platform/Wifi/NetworkManagerWifiClient.h"

namespace quorvel {

struct Endpoints;

/// The operating system and the web that the program runs on. They come with the scenes: an icon
/// that nobody clicks asks neither.
class LiveFacilities final
{
public:
    explicit LiveFacilities(const Endpoints &endpoints);

    /// Living as long as this.
    [[nodiscard]] MenuBarFacilities menuBar();

private:
    OverpassPointsOfInterest m_map;
    QUrl m_weatherEndpoint;
    NetworkManagerWifiClient m_radio;
    QtPasteboard m_pasteboard;
    DesktopSystemSettings m_systemSettings;
};

} // namespace quorvel
