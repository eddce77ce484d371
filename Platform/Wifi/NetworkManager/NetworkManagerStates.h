#pragma once

#include "Platform/Wifi/WifiError.h"

#include <optional>

/// What the numbers mean by which the service tells how a connection comes up.
namespace quorvel::NetworkManagerStates {

inline constexpr uint deviceDisconnected = 30;
inline constexpr uint deviceNeedsAuthentication = 60;
inline constexpr uint deviceGetsAddress = 70;
inline constexpr uint deviceActivated = 100;
inline constexpr uint deviceFailed = 120;

inline constexpr uint activeActivated = 2;
inline constexpr uint activeDeactivated = 4;

/// Whether the network was given a password that it can have refused.
enum class Secured : bool { No, Yes };

/// The failure that a radio on its way to our network has just told of; nothing while it goes on.
[[nodiscard]] std::optional<WifiError> failureOfDevice(uint state, uint reason, Secured secured);

/// The failure that the end of our connection tells of, where the radio itself said nothing.
[[nodiscard]] WifiError failureOfActive(uint reason, Secured secured);

} // namespace quorvel::NetworkManagerStates
