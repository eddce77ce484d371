#pragma once

#include "Models/CheckIn.h"

#include <QJsonObject>
#include <QJsonValue>

#include <optional>

/// The program's records as JSON for other programs. The keys are a promise: a key keeps its name
/// and type, an absent value is null, and we only add keys.
namespace quorvel::VisitJson {

/// The whole visit, with its café and its weather.
[[nodiscard]] QJsonObject visit(const CheckIn &visit);

[[nodiscard]] QJsonObject ratings(const WorkRatings &ratings);
[[nodiscard]] QJsonValue weather(const std::optional<WeatherSnapshot> &weather);

/// "2026-03-03T07:05:00.000Z"
[[nodiscard]] QString date(Instant instant);

/// The text, or null.
[[nodiscard]] QJsonValue text(const std::optional<QString> &text);

} // namespace quorvel::VisitJson
