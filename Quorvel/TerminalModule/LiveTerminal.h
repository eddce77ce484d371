#pragma once

#include "Core/DI/AppEnvironment.h"
#include "Features/MenuBar/Loop/MenuBarServices.h"
#include "Features/Terminal/TerminalContext.h"
#include "Platform/NotificationCenter/NotificationCenter.h"
#include "Quorvel/LiveFacilities.h"

#include <optional>

namespace quorvel {

/// What the commands work with on this machine: each part made when a command first asks for it.
class LiveTerminal final
{
public:
    /// The terminal outlives this.
    explicit LiveTerminal(Terminal &terminal);

    /// Living as long as this.
    [[nodiscard]] TerminalContext context();

private:
    [[nodiscard]] CheckInRepository &repository();
    [[nodiscard]] MenuBarViewModel::Services loop();
    void waitForRadio();

    Terminal &m_terminal;
    NotificationCenter::Observation m_saveObserver;
    std::optional<AppEnvironment> m_environment;
    std::optional<LiveFacilities> m_facilities;
    std::optional<MenuBarServices> m_services;
};

} // namespace quorvel
