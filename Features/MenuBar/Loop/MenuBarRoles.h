#pragma once

#include "Features/MenuBar/Loop/MenuBarViewModel.h"

namespace quorvel {

class CheckInRepository;
class Pasteboard;
class SystemEvents;
class SystemSettings;
class SystemWifiPasswordReader;

/// Everything that the panel's view models ask, by its role. All of it outlives the panel.
struct MenuBarRoles
{
    /// Null when the store could not be opened.
    CheckInRepository *checkInRepository;
    MenuBarViewModel::Services loop;
    SystemWifiPasswordReader &systemPasswords;
    Pasteboard &pasteboard;
    SystemSettings &systemSettings;
    SystemEvents &systemEvents;
    const Clock &clock;
};

} // namespace quorvel
