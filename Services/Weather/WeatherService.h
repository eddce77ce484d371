#pragma once

#include "Core/Support/Tasks/Task.h"
#include "Models/WeatherSnapshot.h"
#include "Platform/Geodesy/Coordinate.h"

namespace quorvel {

/// Tells the current weather, for the main loop.
class WeatherService
{
public:
    virtual ~WeatherService() = default;

    /// The current weather at a place. Throws AppError.
    [[nodiscard]] virtual Task<WeatherSnapshot> currentWeather(Coordinate at) = 0;
};

} // namespace quorvel
