#pragma once

#include "Core/Support/ViewState.h"
#include "Features/MenuBar/Loop/LocatedSnapshot.h"
#include "Platform/Errors/LocalizedError.h"
#include "Platform/Geodesy/Coordinate.h"
#include "Platform/Location/LocationManager.h"

#include <QStringList>

/// The texts of the diagnostics.
namespace quorvel::ProbeTexts {

/// The text for a missing network name.
[[nodiscard]] QString noName();
[[nodiscard]] QString authorization(AuthorizationStatus status);
/// "10.77690, 106.70090", exact to about a metre.
[[nodiscard]] QString position(Coordinate coordinate);
/// "42 m"
[[nodiscard]] QString meters(double distance);
/// Otherwise a network's or a café's name could add lines of its own.
[[nodiscard]] QString onOneLine(QString text);
/// Whether locating changed the network's name. Either name may be `noName`.
[[nodiscard]] QString verdict(const QString &ssidBefore, const QString &ssidAfter);

/// The state of the daily loop: one line, or four lines with a result.
[[nodiscard]] QString loop(const ViewState<LocatedSnapshot> &state);
/// The daily loop's result, one line each: café, weather, network, number of other cafés.
[[nodiscard]] QStringList located(const LocatedSnapshot &snapshot);
/// Why there is no result; empty without an error.
[[nodiscard]] QString error(const LocalizedError *error);

} // namespace quorvel::ProbeTexts
