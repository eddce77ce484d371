#pragma once

#include "Platform/Geodesy/Coordinate.h"
#include "_Probes/Log/LogLine.h"

#include <QStringList>

/// What of the diagnostics may be sent to a stranger who helps: nothing that tells where somebody
/// sits, or what the network there is called. Cafés have no names in it and no distances either,
/// since three of those find the seat between them.
namespace quorvel::ShareableText {

/// What stands where something was.
[[nodiscard]] QString leftOut();

/// "10.78, 106.70": a hundredth of a degree is about a kilometre, which tells the town, and whether
/// the fix is in the right country, but no address.
[[nodiscard]] QString position(Coordinate coordinate);

/// A line of the log as it is copied. What is said in an error are often the system's own words.
[[nodiscard]] QString line(const LogLine &line, const QStringList &names);

/// What the system said, without these names, the user's folder, the addresses of radios, and the
/// exact digits of coordinates.
[[nodiscard]] QString words(QString text, QStringList names);

} // namespace quorvel::ShareableText
