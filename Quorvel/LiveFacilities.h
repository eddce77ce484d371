#pragma once

#include "Core/DI/Facilities.h"
#include "Platform/PointsOfInterest/OverpassPointsOfInterest.h"
#include "Platform/Wifi/NetworkManagerWifiClient.h"

#include <functional>

namespace quorvel {

struct Endpoints;

/// The operating system and the web that the program runs on, for the scenes and for the commands
/// of a terminal. None of it needs a display, and an icon that nobody clicks asks none of it.
class LiveFacilities final
{
public:
    explicit LiveFacilities(const Endpoints &endpoints);

    [[nodiscard]] const Facilities &facilities() const { return m_facilities; }

    /// Calls back once the radio is known, or that there is none to be known.
    void whenRadioIsRead(QObject *context, std::function<void()> action);

private:
    OverpassPointsOfInterest m_map;
    NetworkManagerWifiClient m_radio;
    Facilities m_facilities;
};

} // namespace quorvel
