#pragma once

#include "Platform/Location/Location.h"

#include <QVariantMap>

#include <optional>

class QDBusMessage;

/// GeoClue's location objects, read with care: whoever owns the name may answer anything.
namespace quorvel::GeoClueLocation {

/// The location in the reply to GetAll on such an object. Nothing without a point on the globe; a
/// timestamp that cannot be read is the epoch.
[[nodiscard]] std::optional<Location> fromReply(const QDBusMessage &reply);

} // namespace quorvel::GeoClueLocation
