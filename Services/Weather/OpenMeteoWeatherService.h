#pragma once

#include "Platform/Clock/Clock.h"
#include "Platform/Http/HttpClient.h"
#include "Services/Weather/WeatherService.h"

namespace quorvel {

/// The weather from Open-Meteo's public forecast, which asks for no key but for its name to be
/// shown. Asked once a call: no retry and no cache.
class OpenMeteoWeatherService final : public WeatherService
{
public:
    /// The scheme and host of the forecast; another one may mirror it.
    static const QUrl defaultEndpoint;

    /// The session and the clock outlive every call.
    explicit OpenMeteoWeatherService(HttpClient &session, const Clock &clock = Clock::system(),
                                     QUrl endpoint = defaultEndpoint);

    [[nodiscard]] Task<WeatherSnapshot> currentWeather(Coordinate at) override;

private:
    [[nodiscard]] static Task<WeatherSnapshot> weather(OpenMeteoWeatherService service,
                                                       Coordinate at);
    [[nodiscard]] HttpRequest makeRequest(Coordinate at) const;
    static void validate(const HttpResponse &response);
    [[nodiscard]] WeatherSnapshot decode(const QByteArray &body) const;

    HttpClient *m_session;
    const Clock *m_clock;
    QUrl m_endpoint;
};

} // namespace quorvel
