#pragma once

#include "Platform/Geodesy/Coordinate.h"
#include "_Probes/Log/LogLine.h"

#include <QStringList>

/// The part of the diagnostics that may go to a stranger who helps. It does not tell where the user
/// sits or which network is there. Cafés have neither names nor distances: three distances would
/// reveal the seat.
namespace quorvel::ShareableText {

/// The text in place of a removed one.
[[nodiscard]] QString leftOut();

/// "10.78, 106.70": a hundredth of a degree is about a kilometre. It tells the town and whether the
/// position is plausible, but no address.
[[nodiscard]] QString position(Coordinate coordinate);

/// A line of the log for copying. Error texts often come from the system.
[[nodiscard]] QString line(const LogLine &line, const QStringList &names);

/// The system's text without these names, the user's folder, the addresses of radios, and exact
/// coordinates.
[[nodiscard]] QString words(QString text, QStringList names);

} // namespace quorvel::ShareableText
