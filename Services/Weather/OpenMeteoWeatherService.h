#pragma once

#include "Platform/Clock/Clock.h"
#include "Platform/Http/HttpClient.h"
#include "Services/Weather/WeatherService.h"

#include <QUrl>

namespace quorvel {

/// The weather from Open-Meteo's public forecast. It needs no key, but its name must be shown. Each
/// call sends one request: no retry and no cache.
class OpenMeteoWeatherService final : public WeatherService
{
public:
    /// Scheme and host of the forecast server. A mirror has another one.
    static const QUrl defaultEndpoint;

    /// The session and the clock must outlive every call.
    OpenMeteoWeatherService(HttpClient &session, const Clock &clock,
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
