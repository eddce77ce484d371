#pragma once

#include "Features/MenuBar/Loop/MenuBarFacilities.h"
#include "Platform/PointsOfInterest/OverpassPointsOfInterest.h"
#include "Platform/Wifi/NetworkManagerWifiClient.h"

namespace quorvel {

struct Endpoints;

/// The operating system and the web that the daily loop runs on, for the scenes and for the
/// commands of a terminal. None of it needs a display, and an icon that nobody clicks asks none of
/// it.
class LiveFacilities final
{
public:
    explicit LiveFacilities(const Endpoints &endpoints);

    /// But for what a window alone needs. Living as long as this.
    [[nodiscard]] MenuBarFacilities menuBar();

    /// Calls back once the radio is known, or that there is none to be known.
    void whenRadioIsRead(QObject *context, std::function<void()> action);

private:
    OverpassPointsOfInterest m_map;
    QUrl m_weatherEndpoint;
    NetworkManagerWifiClient m_radio;
};

} // namespace quorvel
