#include "_Probes/ProbeServices.h"

#include "Core/DI/AppEnvironment.h"

namespace quorvel {

ProbeServices::ProbeServices(const MenuBarFacilities &facilities)
    : m_facilities(facilities)
    , m_actions(facilities)
    , m_loop(facilities)
{}

ProbeRoles ProbeServices::roles(const AppEnvironment &environment)
{
    const auto actions = m_actions.loop();
    return {.makeLocationManager = m_facilities.makeLocationManager,
            .locationService = actions.location,
            .wifiService = actions.wifi,
            .placesService = actions.places,
            .repository = environment.checkInRepository(),
            .setupError = environment.setupError().value_or(QString()),
            .loop = m_loop.loop(),
            .pasteboard = *m_facilities.pasteboard,
            .clock = *m_facilities.clock};
}

} // namespace quorvel
