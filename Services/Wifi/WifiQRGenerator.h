#pragma once

#include <QImage>
#include <QString>

#include <optional>

/// The code that a phone's camera joins a Wi-Fi network by, for the visit detail and its card.
namespace quorvel::WifiQRGenerator {

/// The text in the code. The kind of authentication is taken as it is, the names are escaped.
[[nodiscard]] QString payload(const QString &ssid, const QString &password, const QString &auth);

/// The payload as black modules on white, each `scale` pixels wide and high, with four modules of
/// white around them. A side that is no whole number of pixels is rounded. Absent where the payload
/// is too long for a code, and where the scale makes no picture.
[[nodiscard]] std::optional<QImage> image(const QString &payload, double scale);

} // namespace quorvel::WifiQRGenerator
