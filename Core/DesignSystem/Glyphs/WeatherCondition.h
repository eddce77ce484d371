#pragma once

#include <QString>

namespace quorvel {

enum class WeatherTint { Sun, Cloud, Rain };

/// What a weather code means to a person. The one place where the codes are interpreted.
struct WeatherCondition
{
    QString symbol;
    QString label;
    WeatherTint tint;

    bool operator==(const WeatherCondition &) const = default;

    /// Codes are those of the World Meteorological Organization; every other one is clear.
    [[nodiscard]] static WeatherCondition config(int code, bool isDay);
};

} // namespace quorvel
