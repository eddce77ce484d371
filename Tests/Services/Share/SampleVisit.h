#pragma once

#include "Models/CheckIn.h"
#include "Tests/Support/Instants.h"

#include <QUuid>

#include <memory>
#include <optional>

namespace quorvel::tests {

inline const QUuid visitId(QStringLiteral("{00000000-0000-0000-0000-000000000001}"));
inline const QUuid cafeId(QStringLiteral("{00000000-0000-0000-0000-000000000002}"));

inline std::shared_ptr<Cafe> cafeAt(double latitude, double longitude)
{
    return std::make_shared<Cafe>(cafeId, QStringLiteral("Blue Door"), latitude, longitude,
                                  QStringLiteral("Cafe 5G"), QStringLiteral("node/1"));
}

/// A visit with every optional value.
inline std::shared_ptr<CheckIn> fullVisit()
{
    const WeatherSnapshot weather{.temperatureC = 22.5,
                                  .apparentTemperatureC = -0.25,
                                  .weatherCode = 3,
                                  .isDay = true,
                                  .capturedAt = instant(QStringLiteral("2026-03-03T07:04:59Z"))};
    const WorkRatings ratings{.wifiSpeed = 5, .outlets = 4, .noise = 1, .quietForCalls = 2};
    return std::make_shared<CheckIn>(visitId, instant(QStringLiteral("2026-03-03T07:05:00.120Z")),
                                     QStringLiteral("calm"), QStringLiteral("1 Main Street"),
                                     QStringLiteral("photo.jpg"), ratings, weather,
                                     cafeAt(10.5, -106.25));
}

/// A visit without any optional value.
inline std::shared_ptr<CheckIn> bareVisit()
{
    return std::make_shared<CheckIn>(visitId, instant(QStringLiteral("2026-03-03T07:05:00Z")),
                                     QString(), std::nullopt, std::nullopt, WorkRatings(),
                                     std::nullopt, nullptr);
}

} // namespace quorvel::tests
