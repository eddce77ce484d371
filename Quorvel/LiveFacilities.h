#pragma once

#include "Core/DI/Facilities.h"
#include "Platform/PointsOfInterest/OverpassPointsOfInterest.h"
#include "Platform/Wifi/NetworkManagerWifiClient.h"

#include <functional>

namespace quorvel {

struct Endpoints;

/// The live operating system and web, for the scenes and for the commands of a terminal. It needs
/// no display. An icon that nobody clicks uses none of it.
class LiveFacilities final
{
public:
    explicit LiveFacilities(const Endpoints &endpoints);

    [[nodiscard]] const Facilities &facilities() const { return m_facilities; }

    /// Calls back when the radio's state is known, or when it is known that there is none.
    void whenRadioIsRead(QObject *context, std::function<void()> action);

private:
    OverpassPointsOfInterest m_map;
    NetworkManagerWifiClient m_radio;
    Facilities m_facilities;
};

} // namespace quorvel
