#pragma once

#include "Core/Support/ViewState.h"
#include "Features/MenuBar/Loop/LocatedSnapshot.h"

#include <QJsonObject>
#include <QJsonValue>

#include <optional>

/// The daily loop's result as JSON for other programs. The keys are a promise: a key keeps its name
/// and type, an absent value is null, and we only add keys.
namespace quorvel::LocatedJson {

/// For a loop that has ended.
[[nodiscard]] QJsonObject result(const ViewState<LocatedSnapshot> &state);

[[nodiscard]] QJsonValue cafe(const std::optional<PlaceCandidate> &candidate);

} // namespace quorvel::LocatedJson
