#pragma once

#include "Platform/Errors/FakeAnswers.h"
#include "Services/Weather/WeatherService.h"

namespace quorvel {

/// A weather service that answers as a test tells it.
class FakeWeatherService final : public WeatherService
{
public:
    [[nodiscard]] Task<WeatherSnapshot> currentWeather(Coordinate at) override
    {
        Pending<WeatherSnapshot> pending;
        calls.call(pending.completion(), at);
        const auto weather = co_await pending;
        co_return weather;
    }

    FakeAnswers<WeatherSnapshot, Coordinate> calls{"FakeWeatherService::currentWeather"};
};

} // namespace quorvel
