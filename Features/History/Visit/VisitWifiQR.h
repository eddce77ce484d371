#pragma once

#include "Core/Support/Tasks/Task.h"
#include "Platform/Keychain/Keychain.h"

#include <QImage>
#include <QString>

#include <optional>

namespace quorvel {

/// The code that a visit's card has for who wants to join its Wi-Fi.
namespace VisitWifiQR {

/// How many pixels of the picture are one module of the code, along each side.
inline constexpr double scale = 8;

/// Reads the password that is saved for the network and draws the code, on another thread. Nothing
/// without a network, without a saved password, or where the keychain cannot be read.
[[nodiscard]] Task<std::optional<QImage>> load(const std::optional<QString> &ssid,
                                               const KeychainMaker &makeKeychain);

} // namespace VisitWifiQR
} // namespace quorvel
