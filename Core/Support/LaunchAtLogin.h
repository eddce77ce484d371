#pragma once

#include "Platform/LoginItem/LoginItem.h"

/// The switch "start at login", for the panel's toggle. It keeps no state: only the desktop's
/// registration counts.
namespace quorvel::LaunchAtLogin {

/// True exactly while the item is enabled.
[[nodiscard]] bool isEnabled(const LoginItem &item = LoginItem::mainApp());

/// Registers or unregisters the item if that changes anything. Throws the item's errors; the caller
/// then asks `isEnabled` again.
void setEnabled(bool enabled, LoginItem &item = LoginItem::mainApp());

} // namespace quorvel::LaunchAtLogin
