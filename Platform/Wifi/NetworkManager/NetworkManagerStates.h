#pragma once

#include "Platform/Wifi/WifiError.h"

#include <optional>

/// The numbers by which NetworkManager reports how a connection comes up.
namespace quorvel::NetworkManagerStates {

inline constexpr uint deviceDisconnected = 30;
inline constexpr uint deviceNeedsAuthentication = 60;
inline constexpr uint deviceGetsAddress = 70;
inline constexpr uint deviceActivated = 100;
inline constexpr uint deviceFailed = 120;

inline constexpr uint activeActivated = 2;
inline constexpr uint activeDeactivated = 4;

/// Whether the network received a password that it may have refused.
enum class Secured : bool { No, Yes };

/// The failure that our radio has just reported; nothing while it goes on.
[[nodiscard]] std::optional<WifiError> failureOfDevice(uint state, uint reason, Secured secured);

/// The failure that the end of our connection reports, if the radio reported none.
[[nodiscard]] WifiError failureOfActive(uint reason, Secured secured);

} // namespace quorvel::NetworkManagerStates
