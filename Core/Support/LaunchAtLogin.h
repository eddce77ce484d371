#pragma once

#include "Platform/LoginItem/LoginItem.h"

/// The switch "start at login", for the menu's toggle. It keeps no state: the desktop's
/// registration is the only truth.
namespace quorvel::LaunchAtLogin {

/// True exactly while the item is enabled.
[[nodiscard]] bool isEnabled(const LoginItem &item = LoginItem::mainApp());

/// Registers or unregisters when that makes a difference. Throws what the item throws; the caller
/// then asks `isEnabled` anew.
void setEnabled(bool enabled, LoginItem &item = LoginItem::mainApp());

} // namespace quorvel::LaunchAtLogin
