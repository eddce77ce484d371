#pragma once

#include <QImage>
#include <QString>

#include <optional>

/// Makes the code by which a phone's camera joins a Wi-Fi network, for the visit detail and its
/// card.
namespace quorvel::WifiQRGenerator {

/// The text in the code. Names are escaped; the kind of authentication is used as given.
[[nodiscard]] QString payload(const QString &ssid, const QString &password, const QString &auth);

/// The payload as black modules on white, each `scale` pixels wide, with a margin of four modules.
/// The side is rounded to whole pixels. Absent if the payload is too long for a code, or if the
/// scale gives no picture.
[[nodiscard]] std::optional<QImage> image(const QString &payload, double scale);

} // namespace quorvel::WifiQRGenerator
