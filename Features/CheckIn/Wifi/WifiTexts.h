#pragma once

#include "Services/Wifi/WifiModels.h"

#include <QString>

#include <optional>

/// The texts of the Wi-Fi block.
namespace quorvel::WifiTexts {

/// "3 found", or "Scanning…" while the number is unknown.
[[nodiscard]] QString header(std::optional<qsizetype> found);

/// "Good · -65 dBm"
[[nodiscard]] QString detail(const WifiNetwork &network);
/// The tags and the detail of a row, for a screen reader: "connected, saved, Good · -65 dBm".
[[nodiscard]] QString description(bool isConnected, bool isSaved, const QString &detail);

/// Which password is asked for, and what happens with it.
[[nodiscard]] QString prompt(const QString &ssid);
[[nodiscard]] QString submitTitle(bool requiresConnect);
[[nodiscard]] QString cannotConnect();

/// The texts of the eye beside a password.
[[nodiscard]] QString revealTitle(bool isRevealed);

/// The stored password if it is revealed, bullets otherwise.
[[nodiscard]] QString stored(const std::optional<QString> &revealed);
/// The same for a screen reader, which would spell out the bullets.
[[nodiscard]] QString storedSpoken(const std::optional<QString> &revealed);
[[nodiscard]] QString copyTitle(bool isCopied);

} // namespace quorvel::WifiTexts
