#pragma once

#include "Core/Support/ViewState.h"
#include "Features/MenuBar/Loop/LocatedSnapshot.h"
#include "Platform/Errors/LocalizedError.h"
#include "Platform/Geodesy/Coordinate.h"
#include "Platform/Location/LocationManager.h"

#include <QStringList>

/// What the diagnostics say, from what the services gave.
namespace quorvel::ProbeTexts {

/// What stands for a network's name where there is none.
[[nodiscard]] QString noName();
[[nodiscard]] QString authorization(AuthorizationStatus status);
/// "10.77690, 106.70090", to about a metre.
[[nodiscard]] QString position(Coordinate coordinate);
/// "42 m"
[[nodiscard]] QString meters(double distance);
/// Whoever names a network or a café could otherwise write lines of their own.
[[nodiscard]] QString onOneLine(QString text);
/// Whether locating made a difference to the network's name, of which either may be `noName`.
[[nodiscard]] QString verdict(const QString &ssidBefore, const QString &ssidAfter);

/// The state of the daily loop: in one line, or in four when something was found.
[[nodiscard]] QString loop(const ViewState<LocatedSnapshot> &state);
/// What the daily loop found, a line each: café, weather, network, and how many more cafés.
[[nodiscard]] QStringList located(const LocatedSnapshot &snapshot);
/// Why there is no result; empty without an error.
[[nodiscard]] QString error(const LocalizedError *error);

} // namespace quorvel::ProbeTexts
