#pragma once

#include "Models/CheckIn.h"

#include <QByteArrayView>
#include <QStringView>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

/// Writes visits as text for other programs. Passwords are never part of it; they stay in the
/// keychain.
namespace quorvel::VisitExport {

enum class Format { Json, Csv, GeoJson };

/// Returns the format with this name, as a user types it; nothing if there is none.
[[nodiscard]] std::optional<Format> formatNamed(QStringView name);

using Sink = std::function<void(QByteArrayView)>;

/// Passes the text to the sink in pieces, so that it is never in memory as a whole. An exception of
/// the sink ends the export.
void write(const std::vector<std::shared_ptr<CheckIn>> &visits, Format format, const Sink &sink);

} // namespace quorvel::VisitExport
