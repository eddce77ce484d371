#pragma once

#include "Core/Support/Tasks/Task.h"
#include "Platform/Keychain/Keychain.h"

#include <QImage>
#include <QString>

#include <optional>

namespace quorvel {

/// Makes the code on a visit's card that joins its Wi-Fi.
namespace VisitWifiQR {

/// The size of one module of the code in pixels.
inline constexpr double scale = 8;

/// Reads the network's stored password and draws the code, on another thread. Nothing without a
/// network, without a stored password, or if the keychain cannot be read.
[[nodiscard]] Task<std::optional<QImage>> load(const std::optional<QString> &ssid,
                                               const KeychainMaker &makeKeychain);

} // namespace VisitWifiQR
} // namespace quorvel
