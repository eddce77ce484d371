#pragma once

#include "Features/MenuBar/Loop/MenuBarServices.h"
#include "_Probes/ProbeRoles.h"

namespace quorvel {

class AppEnvironment;

/// The services of the diagnostics, made for them alone as the panel's are. The loop has its own:
/// it and an action may ask for the position at the same time.
class ProbeServices final
{
public:
    explicit ProbeServices(const MenuBarFacilities &facilities);

    /// Living as long as this, and as the environment.
    [[nodiscard]] ProbeRoles roles(const AppEnvironment &environment);

private:
    MenuBarFacilities m_facilities;
    MenuBarServices m_actions;
    MenuBarServices m_loop;
};

} // namespace quorvel
