#pragma once

#include "Models/CheckIn.h"

#include <QJsonObject>

/// The records of the program as other programs read them. The keys are a promise: what is there
/// keeps its name and its kind, what is absent is null, and only new keys may come.
namespace quorvel::VisitJson {

/// All of a visit, with its café and its weather.
[[nodiscard]] QJsonObject visit(const CheckIn &visit);

[[nodiscard]] QJsonObject ratings(const WorkRatings &ratings);
[[nodiscard]] QJsonValue weather(const std::optional<WeatherSnapshot> &weather);

/// "2026-03-03T07:05:00.000Z"
[[nodiscard]] QString date(Instant instant);

/// The text, or null.
[[nodiscard]] QJsonValue text(const std::optional<QString> &text);

} // namespace quorvel::VisitJson
