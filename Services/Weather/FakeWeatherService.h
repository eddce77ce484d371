#pragma once

#include "Platform/Errors/FakeCalls.h"
#include "Services/Weather/WeatherService.h"

namespace quorvel {

/// Weather as a test wishes.
class FakeWeatherService final : public WeatherService
{
public:
    [[nodiscard]] Task<WeatherSnapshot> currentWeather(Coordinate at) override
    {
        Pending<WeatherSnapshot> pending;
        calls.begin(at, pending.completion());
        const auto weather = co_await pending;
        co_return weather;
    }

    FakeCalls<Coordinate, WeatherSnapshot> calls{"FakeWeatherService::currentWeather",
                                                 Outcome<WeatherSnapshot>::failure(Abandoned())};
};

} // namespace quorvel
