#pragma once

#include "Platform/Errors/LocalizedError.h"

#include <utility>

namespace quorvel {

/// The current weather in Open-Meteo's reply. Each member's comment names its key.
struct OpenMeteoCurrentWeather
{
    double temperature2M = 0;       ///< "temperature_2m", degrees Celsius
    double apparentTemperature = 0; ///< "apparent_temperature", degrees Celsius
    qint64 weatherCode = 0;         ///< "weather_code", WMO
    qint64 isDay = 0;               ///< "is_day", 0 by night
    double windSpeed10M = 0;        ///< "wind_speed_10m"

    friend bool operator==(const OpenMeteoCurrentWeather &,
                           const OpenMeteoCurrentWeather &) = default;
};

/// The body of a forecast, for the weather service. Every member is required. Other members of the
/// body are ignored.
struct OpenMeteoForecastResponse
{
    OpenMeteoCurrentWeather current;

    friend bool operator==(const OpenMeteoForecastResponse &,
                           const OpenMeteoForecastResponse &) = default;
};

/// The body is not a forecast.
class OpenMeteoDecodingError final : public LocalizedError
{
public:
    explicit OpenMeteoDecodingError(QString sentence)
        : m_sentence(std::move(sentence))
    {}

    [[nodiscard]] QString errorDescription() const override { return m_sentence; }

private:
    QString m_sentence;
};

namespace OpenMeteoDTO {

/// Throws OpenMeteoDecodingError.
[[nodiscard]] OpenMeteoForecastResponse decode(const QByteArray &body);

} // namespace OpenMeteoDTO

} // namespace quorvel
