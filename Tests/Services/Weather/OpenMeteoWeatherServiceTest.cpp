#include "Services/Weather/OpenMeteoWeatherService.h"

#include "Core/Support/AppError.h"
#include "Models/WeatherSnapshot.h"
#include "Platform/Clock/FakeClock.h"
#include "Platform/Errors/Outcome.h"
#include "Platform/Geodesy/Coordinate.h"
#include "Platform/Http/FakeHttpClient.h"
#include "Platform/Http/HttpRequest.h"
#include "Platform/Http/HttpResponse.h"
#include "Platform/Http/QtHttpClient.h"
#include "Tests/Support/Instants.h"
#include "Tests/Support/RunTask.h"
#include "Tests/Support/Services/ScriptedHttpServer.h"

#include <chrono>
#include <memory>
#include <optional>
#include <utility>

namespace quorvel::tests {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const Coordinate blueDoor{.latitude = 10.7769, .longitude = 106.7009};

QByteArray forecast(int isDay = 1)
{
    return R"({"current": {"temperature_2m": 31.5, "apparent_temperature": 37.25,
               "weather_code": 80, "wind_speed_10m": 5.5, "is_day": )" +
           QByteArray::number(isDay) + "}}";
}

HttpResponse answer(int status, const QByteArray &body = forecast())
{
    return {.statusCode = status, .body = body};
}

} // namespace

class OpenMeteoWeatherServiceTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_web = std::make_unique<FakeHttpClient>();
        m_clock.instant = instant(u"2026-05-02T09:20:00Z"_s);
    }

    void theRequestIsWrittenToTheLetter_data()
    {
        QTest::addColumn<double>("latitude");
        QTest::addColumn<double>("longitude");
        QTest::addColumn<QByteArray>("place");
        QTest::newRow("both positive")
            << 10.7769 << 106.7009 << QByteArray("latitude=10.7769&longitude=106.7009");
        QTest::newRow("south") << -33.8688 << 151.2093
                               << QByteArray("latitude=-33.8688&longitude=151.2093");
        QTest::newRow("west") << 37.3349 << -122.009
                              << QByteArray("latitude=37.3349&longitude=-122.009");
        QTest::newRow("whole") << 0.0 << -180.0 << QByteArray("latitude=0.0&longitude=-180.0");
        QTest::newRow("negative zero")
            << -0.0 << 1e-7 << QByteArray("latitude=-0.0&longitude=1e-07");
        QTest::newRow("all digits") << 0.1 + 0.2 << 1.0 / 3
                                    << QByteArray("latitude=0.30000000000000004"
                                                  "&longitude=0.3333333333333333");
    }

    void theRequestIsWrittenToTheLetter()
    {
        QFETCH(const double, latitude);
        QFETCH(const double, longitude);
        QFETCH(const QByteArray, place);
        m_web->calls.willSucceed(answer(200));
        runTask(service().currentWeather({.latitude = latitude, .longitude = longitude}));
        QCOMPARE(m_web->calls.requests.size(), 1U);
        const HttpRequest request = m_web->calls.requests.front();
        QCOMPARE(request.url.toEncoded(),
                 "https://api.open-meteo.com/v1/forecast?" + place +
                     "&current=temperature_2m,apparent_temperature,weather_code,is_day,"
                     "wind_speed_10m");
        QVERIFY(request.method == HttpRequest::Method::Get);
        QCOMPARE(request.body, QByteArray());
        QCOMPARE(request.timeout, 30s);
    }

    void theEndpointMayBeElsewhere_data()
    {
        QTest::addColumn<QString>("endpoint");
        QTest::addColumn<QString>("beginning");
        QTest::newRow("host and port")
            << u"http://127.0.0.1:8080"_s << u"http://127.0.0.1:8080/v1/forecast?latitude="_s;
        QTest::newRow("slash") << u"http://127.0.0.1:8080/"_s
                               << u"http://127.0.0.1:8080/v1/forecast?latitude="_s;
        QTest::newRow("folder") << u"https://mirror.example/weather"_s
                                << u"https://mirror.example/weather/v1/forecast?latitude="_s;
        QTest::newRow("folder and slash")
            << u"https://mirror.example/weather/"_s
            << u"https://mirror.example/weather/v1/forecast?latitude="_s;
    }

    void theEndpointMayBeElsewhere()
    {
        QFETCH(const QString, endpoint);
        QFETCH(const QString, beginning);
        m_web->calls.willSucceed(answer(200));
        OpenMeteoWeatherService weather(*m_web, m_clock, QUrl(endpoint));
        runTask(weather.currentWeather(blueDoor));
        QVERIFY(m_web->calls.requests.front().url.toString().startsWith(beginning));
    }

    void anEndpointThatIsNoneFails_data()
    {
        QTest::addColumn<QString>("endpoint");
        QTest::newRow("empty") << QString();
        QTest::newRow("no scheme") << u"api.example"_s;
        QTest::newRow("no address") << u"https://[half"_s;
    }

    void anEndpointThatIsNoneFails()
    {
        QFETCH(const QString, endpoint);
        OpenMeteoWeatherService weather(*m_web, m_clock, QUrl(endpoint));
        QVERIFY(errorOfTask<AppError>(weather.currentWeather(blueDoor)) ==
                AppError::network(u"Could not build Open-Meteo request URL."_s));
        QVERIFY(m_web->calls.requests.empty());
    }

    void theForecastBecomesASnapshot()
    {
        m_web->calls.willSucceed(answer(200));
        const WeatherSnapshot expected{.temperatureC = 31.5,
                                       .apparentTemperatureC = 37.25,
                                       .weatherCode = 80,
                                       .isDay = true,
                                       .capturedAt = instant(u"2026-05-02T09:20:00Z"_s)};
        QVERIFY(runTask(service().currentWeather(blueDoor)) == expected);
    }

    void theSnapshotIsTakenWhenTheForecastIsDecoded()
    {
        m_web->calls.willHold();
        auto weather = service().currentWeather(blueDoor);
        m_clock.instant += 7s;
        m_web->calls.release(Outcome<HttpResponse>::success(answer(200)));
        QCOMPARE(runTask(std::move(weather)).capturedAt, instant(u"2026-05-02T09:20:07Z"_s));
    }

    void onlyZeroIsNight_data()
    {
        QTest::addColumn<int>("isDay");
        QTest::addColumn<bool>("expected");
        QTest::newRow("0") << 0 << false;
        QTest::newRow("1") << 1 << true;
        QTest::newRow("2") << 2 << true;
        QTest::newRow("-1") << -1 << true;
    }

    void onlyZeroIsNight()
    {
        QFETCH(const int, isDay);
        m_web->calls.willSucceed(answer(200, forecast(isDay)));
        QTEST(runTask(service().currentWeather(blueDoor)).isDay, "expected");
    }

    void statusesFrom200To299AreAccepted_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("message");
        for (const int status : {200, 201, 204, 299})
            QTest::addRow("%d", status) << status << QString();
        for (const int status : {199, 300, 304, 400, 404, 429, 500, 503})
            QTest::addRow("%d", status) << status << u"Open-Meteo returned HTTP %1."_s.arg(status);
    }

    void statusesFrom200To299AreAccepted()
    {
        QFETCH(const int, status);
        QFETCH(const QString, message);
        // The body is always a valid forecast, but the body of a refusal is not read.
        m_web->calls.willSucceed(answer(status));
        const auto error = errorOfTask<AppError>(service().currentWeather(blueDoor));
        QCOMPARE(error.has_value(), !message.isEmpty());
        QVERIFY(!error || *error == AppError::network(message));
    }

    void anAnswerThatIsNotHttpFails()
    {
        m_web->calls.willSucceed({.statusCode = std::nullopt, .body = forecast()});
        QVERIFY(errorOfTask<AppError>(service().currentWeather(blueDoor)) ==
                AppError::network(u"Unexpected response (not HTTP)."_s));
    }

    void theTransportsOwnSentenceIsPassedOn()
    {
        m_web->calls.willFail(HttpError::transport(u"Host api.open-meteo.com not found"_s));
        QVERIFY(errorOfTask<AppError>(service().currentWeather(blueDoor)) ==
                AppError::network(u"Host api.open-meteo.com not found"_s));
        m_web->calls.willFail(HttpError(HttpError::Case::TimedOut));
        QVERIFY(errorOfTask<AppError>(service().currentWeather(blueDoor)) ==
                AppError::network(u"The request timed out."_s));
    }

    void aBodyThatIsNoForecastIsADataError()
    {
        m_web->calls.willSucceed(answer(200, "{}"));
        QVERIFY(errorOfTask<AppError>(service().currentWeather(blueDoor)) ==
                AppError::decoding(u"The forecast lacks “current”."_s));
    }

    void callsRunSideBySideAndOutliveTheirService()
    {
        m_web->calls.willHold();
        m_web->calls.willSucceed(answer(200, forecast(0)));
        auto held = service().currentWeather(blueDoor);
        QVERIFY(!runTask(service().currentWeather({})).isDay);
        m_web->calls.release(Outcome<HttpResponse>::success(answer(200)));
        QVERIFY(runTask(std::move(held)).isDay);
    }

    void aSessionThatEndsEndsTheCall()
    {
        m_web->calls.willHold();
        auto held = service().currentWeather(blueDoor);
        m_web.reset();
        QVERIFY(errorOfTask<AppError>(std::move(held)) ==
                AppError::network(u"The request was cancelled."_s));
    }

    void aRealServerIsAskedOverARealConnection()
    {
        ScriptedHttpServer server(ScriptedHttpServer::whole(200, forecast()));
        QtHttpClient client;
        OpenMeteoWeatherService weather(client, m_clock, server.url());
        QCOMPARE(runTask(weather.currentWeather(blueDoor)).weatherCode, qint64(80));
        QCOMPARE(server.requests.first().target,
                 "/v1/forecast?latitude=10.7769&longitude=106.7009"
                 "&current=temperature_2m,apparent_temperature,weather_code,is_day,"
                 "wind_speed_10m");
    }

private:
    [[nodiscard]] OpenMeteoWeatherService service() const
    {
        return OpenMeteoWeatherService(*m_web, m_clock);
    }

    std::unique_ptr<FakeHttpClient> m_web;
    FakeClock m_clock{Instant()};
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::OpenMeteoWeatherServiceTest)
#include "OpenMeteoWeatherServiceTest.moc"
