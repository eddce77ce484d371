#pragma once

#include "Core/Support/ViewState.h"
#include "Features/MenuBar/Loop/LocatedSnapshot.h"

#include <QJsonObject>
#include <QJsonValue>

#include <optional>

/// What the daily loop found, as other programs read it. The keys are a promise: what is there
/// keeps its name and its kind, what is absent is null, and only new keys may come.
namespace quorvel::LocatedJson {

/// Of a loop that has ended.
[[nodiscard]] QJsonObject result(const ViewState<LocatedSnapshot> &state);

[[nodiscard]] QJsonValue cafe(const std::optional<PlaceCandidate> &candidate);

} // namespace quorvel::LocatedJson
