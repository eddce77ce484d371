#include "Services/Weather/OpenMeteoWeatherService.h"

#include "Core/Support/AppError.h"
#include "Core/Support/Texts/ShortestDecimal.h"
#include "Platform/Http/HttpError.h"
#include "Services/Weather/OpenMeteoDTO.h"

#include <QUrl>
#include <QUrlQuery>

#include <chrono>
#include <utility>

namespace quorvel {

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::seconds timeout{30};
const QString path = u"v1/forecast"_s;
const QString currentFields =
    u"temperature_2m,apparent_temperature,weather_code,is_day,wind_speed_10m"_s;

} // namespace

const QUrl OpenMeteoWeatherService::defaultEndpoint(u"https://api.open-meteo.com"_s);

OpenMeteoWeatherService::OpenMeteoWeatherService(HttpClient &session, const Clock &clock,
                                                 QUrl endpoint)
    : m_session(&session)
    , m_clock(&clock)
    , m_endpoint(std::move(endpoint))
{}

Task<WeatherSnapshot> OpenMeteoWeatherService::currentWeather(Coordinate at)
{
    // Lifetime: an open call works on a copy and may outlive the service.
    return weather(*this, at);
}

Task<WeatherSnapshot> OpenMeteoWeatherService::weather(OpenMeteoWeatherService service,
                                                       Coordinate at)
{
    Pending<HttpResponse> pending;
    service.m_session->send(service.makeRequest(at), pending.completion());
    try {
        const auto response = co_await pending;
        validate(response);
        const WeatherSnapshot snapshot = service.decode(response.body);
        co_return snapshot;
    } catch (const HttpError &error) {
        throw AppError::network(error.errorDescription());
    }
}

HttpRequest OpenMeteoWeatherService::makeRequest(Coordinate at) const
{
    QUrlQuery query;
    query.addQueryItem(u"latitude"_s, shortestDecimal(at.latitude));
    query.addQueryItem(u"longitude"_s, shortestDecimal(at.longitude));
    query.addQueryItem(u"current"_s, currentFields);
    const QString folder = m_endpoint.path();
    QUrl url = m_endpoint;
    url.setPath(folder.endsWith(u'/') ? folder + path : folder + u'/' + path);
    url.setQuery(query);
    // Check first: setting a part of an invalid address would make it look valid.
    if (!m_endpoint.isValid() || m_endpoint.isRelative() || !url.isValid())
        throw AppError::network(u"Could not build Open-Meteo request URL."_s);
    return {.url = url, .method = HttpRequest::Method::Get, .body = {}, .timeout = timeout};
}

void OpenMeteoWeatherService::validate(const HttpResponse &response)
{
    if (!response.statusCode)
        throw AppError::network(u"Unexpected response (not HTTP)."_s);
    if (!response.isSuccess())
        throw AppError::network(u"Open-Meteo returned HTTP %1."_s.arg(*response.statusCode));
}

WeatherSnapshot OpenMeteoWeatherService::decode(const QByteArray &body) const
{
    try {
        const auto current = OpenMeteoDTO::decode(body).current;
        return {.temperatureC = current.temperature2M,
                .apparentTemperatureC = current.apparentTemperature,
                .weatherCode = current.weatherCode,
                .isDay = current.isDay != 0,
                .capturedAt = m_clock->now()};
    } catch (const OpenMeteoDecodingError &error) {
        throw AppError::decoding(error.errorDescription());
    }
}

} // namespace quorvel
