#pragma once

#include "Platform/ObjectStore/Schema/Composite.h"

#include <tuple>

namespace quorvel {

/// The weather at the time of a visit, as the forecast service reported it.
struct WeatherSnapshot
{
    double temperatureC = 0;
    double apparentTemperatureC = 0;
    qint64 weatherCode = 0; ///< WMO code table 4677, as Open-Meteo reduces it
    bool isDay = false;
    Instant capturedAt = {};

    static constexpr auto codingKeys()
    {
        return std::tuple(CodingKey{"temperatureC", &WeatherSnapshot::temperatureC},
                          CodingKey{"apparentTemperatureC", &WeatherSnapshot::apparentTemperatureC},
                          CodingKey{"weatherCode", &WeatherSnapshot::weatherCode},
                          CodingKey{"isDay", &WeatherSnapshot::isDay},
                          CodingKey{"capturedAt", &WeatherSnapshot::capturedAt});
    }

    friend bool operator==(const WeatherSnapshot &, const WeatherSnapshot &) = default;
};

} // namespace quorvel
