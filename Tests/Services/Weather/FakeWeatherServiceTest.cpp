#include "Services/Weather/FakeWeatherService.h"

#include "Core/Support/AppError.h"
#include "Platform/Geodesy/Coordinate.h"
#include "Tests/Support/RunTask.h"

#include <memory>
#include <utility>
#include <vector>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

class FakeWeatherServiceTest final : public QObject
{
    Q_OBJECT

private slots:
    void callsEndAsTheScriptSays()
    {
        FakeWeatherService service;
        service.calls.willSucceed({.temperatureC = 21});
        service.calls.willFail(AppError::network(u"No way."_s));
        const Coordinate here{.latitude = 48.2, .longitude = 16.4};
        QCOMPARE(runTask(service.currentWeather(here)).temperatureC, 21.0);
        QVERIFY(errorOfTask<AppError>(service.currentWeather({})) ==
                AppError::network(u"No way."_s));
        QVERIFY(service.calls.requests == std::vector({here, Coordinate()}));
    }

    void aHeldCallIsAbandonedWithTheFake()
    {
        auto service = std::make_unique<FakeWeatherService>();
        service->calls.willHold();
        auto weather = service->currentWeather({});
        service.reset();
        QVERIFY(errorOfTask<Abandoned>(std::move(weather)));
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::FakeWeatherServiceTest)
#include "FakeWeatherServiceTest.moc"
