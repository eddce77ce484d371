#pragma once

namespace quorvel {
class LoginItem;
}

/// The switch "start at login", for the panel's footer. It keeps no state: only the desktop's
/// registration counts.
namespace quorvel::LaunchAtLogin {

/// True exactly while the item is enabled.
[[nodiscard]] bool isEnabled(const LoginItem &item);

/// Registers or unregisters the item if that changes anything. Throws the item's errors; the caller
/// then asks `isEnabled` again.
void setEnabled(bool enabled, LoginItem &item);

} // namespace quorvel::LaunchAtLogin
