#pragma once

#include <QString>

namespace quorvel {

enum class WeatherTint { Sun, Cloud, Rain };

/// The meaning of a weather code. The only place that interprets these codes.
struct WeatherCondition
{
    QString symbol;
    QString label;
    WeatherTint tint;

    bool operator==(const WeatherCondition &) const = default;

    /// Takes a code of the World Meteorological Organization. Unknown codes are clear.
    [[nodiscard]] static WeatherCondition config(int code, bool isDay);
};

} // namespace quorvel
