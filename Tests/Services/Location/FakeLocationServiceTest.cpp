#include "Services/Location/FakeLocationService.h"

#include "Tests/Support/RunTask.h"
#include "Tests/Support/Services/LastWords.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

class FakeLocationServiceTest final : public QObject
{
    Q_OBJECT

private slots:
    void itAnswersFromTheScriptInItsOrder()
    {
        FakeLocationService service;
        service.authorize(AuthorizationStatus::Denied);
        service.locate({.latitude = 1, .longitude = 2, .accuracyMeters = 3, .timestamp = {}});
        service.refuseLocation(AppError::locationFailed(u"No fix."_s));
        QCOMPARE(runTask(service.requestAuthorization()), AuthorizationStatus::Denied);
        QCOMPARE(runTask(service.currentLocation()).latitude, 1.0);
        QCOMPARE(errorOfTask<AppError>(service.currentLocation()),
                 AppError::locationFailed(u"No fix."_s));
        QCOMPARE(service.calls, QStringList({u"requestAuthorization"_s, u"currentLocation"_s,
                                             u"currentLocation"_s}));
    }

    void aHeldCallWaitsForTheTest()
    {
        FakeLocationService service;
        service.holdAuthorization();
        auto task = service.requestAuthorization();
        turnEventLoop();
        QVERIFY(!task.isReady());
        service.authorizationWaiter.finish(AuthorizationStatus::AuthorizedAlways);
        QCOMPARE(runTask(std::move(task)), AuthorizationStatus::AuthorizedAlways);
    }

    void anUnscriptedCallFailsTheTest()
    {
        const auto words = lastWords([] {
            FakeLocationService service;
            static_cast<void>(service.currentLocation());
        });
        QVERIFY(words);
        QVERIFY2(words->contains("currentLocation is not in the script"), words->constData());
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::FakeLocationServiceTest)
#include "FakeLocationServiceTest.moc"
