#pragma once

#include "Services/Wifi/WifiModels.h"

#include <QString>

#include <optional>

/// What the Wi-Fi block says, from the state that it shows.
namespace quorvel::WifiTexts {

/// "3 found"; "Scanning…" while the number is not known.
[[nodiscard]] QString header(std::optional<qsizetype> found);

/// "Good · -65 dBm"
[[nodiscard]] QString detail(const WifiNetwork &network);
/// The tags and the detail of a row, for a screen reader: "connected, saved, Good · -65 dBm".
[[nodiscard]] QString description(bool isConnected, bool isSaved, const QString &detail);

/// Whose password is asked for, and what becomes of it.
[[nodiscard]] QString prompt(const QString &ssid);
[[nodiscard]] QString submitTitle(bool requiresConnect);
[[nodiscard]] QString cannotConnect();

/// Of the eye beside a password.
[[nodiscard]] QString revealTitle(bool isRevealed);

/// The stored password where it is revealed; bullets otherwise.
[[nodiscard]] QString stored(const std::optional<QString> &revealed);
/// The same for a screen reader, which would spell out the bullets.
[[nodiscard]] QString storedSpoken(const std::optional<QString> &revealed);
[[nodiscard]] QString copyTitle(bool isCopied);

} // namespace quorvel::WifiTexts
