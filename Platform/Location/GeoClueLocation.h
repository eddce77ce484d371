#pragma once

#include "Platform/Location/Location.h"

#include <QVariantMap>

#include <optional>

class QDBusMessage;

/// Reads GeoClue's location objects with care: any program may own the name and answer anything.
namespace quorvel::GeoClueLocation {

/// The location in a reply to GetAll on a location object. Nothing if it is not a point on the
/// globe. An unreadable timestamp becomes the epoch.
[[nodiscard]] std::optional<Location> fromReply(const QDBusMessage &reply);

} // namespace quorvel::GeoClueLocation
