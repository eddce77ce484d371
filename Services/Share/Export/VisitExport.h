#pragma once

#include "Models/CheckIn.h"

#include <functional>

/// Visits as a text that other programs read. No password is in it: those are the keychain's.
namespace quorvel::VisitExport {

enum class Format { Json, Csv, GeoJson };

/// By the name that a user types; nothing when it is none.
[[nodiscard]] std::optional<Format> formatNamed(QStringView name);

using Sink = std::function<void(QByteArrayView)>;

/// Hands on the text in pieces, so that it is never all in memory. What the sink throws ends it.
void write(const std::vector<std::shared_ptr<CheckIn>> &visits, Format format, const Sink &sink);

} // namespace quorvel::VisitExport
