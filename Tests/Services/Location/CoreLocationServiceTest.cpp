#include "Services/Location/CoreLocationService.h"

#include "Core/Support/AppError.h"
#include "Platform/Location/FakeLocationManager.h"
#include "Platform/Location/Location.h"
#include "Tests/Support/RunTask.h"

#include <chrono>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

Q_DECLARE_METATYPE(quorvel::AuthorizationStatus)

namespace quorvel::tests {

namespace {

using Status = AuthorizationStatus;

Location locationAt(double latitude)
{
    return {.latitude = latitude, .longitude = 106.7, .accuracyMeters = 25, .timestamp = {}};
}

template <class Value>
Task<> noteEnd(Task<Value> task, QStringList *events)
{
    try {
        co_await task;
        events->append(u"answered"_s);
    } catch (const Abandoned &) {
        events->append(u"abandoned"_s);
    }
}

} // namespace

class CoreLocationServiceTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_first.clear();
        m_second.clear();
        auto manager = std::make_unique<FakeLocationManager>();
        m_manager = manager.get();
        m_service = std::make_unique<CoreLocationService>(std::move(manager));
    }

    void cleanup()
    {
        m_service.reset();
        turnEventLoop();
    }

    void constructionAsksForHundredMetersAndNothingElse()
    {
        QCOMPARE(m_manager->calls, QStringList(u"setDesiredAccuracy(100)"_s));
    }

    void theStatusesHaveThePlatformsNumbers()
    {
        QCOMPARE(int(Status::NotDetermined), 0);
        QCOMPARE(int(Status::Restricted), 1);
        QCOMPARE(int(Status::Denied), 2);
        QCOMPARE(int(Status::AuthorizedAlways), 3);
        QCOMPARE(int(Status::AuthorizedWhenInUse), 4);
    }

    void aDeterminedStatusIsReturnedUnasked_data() { determinedStatuses(); }
    void aDeterminedStatusIsReturnedUnasked()
    {
        QFETCH(const Status, status);
        m_manager->status = status;
        const auto task = m_service->requestAuthorization();
        QVERIFY(task.isReady());
        QCOMPARE(runTask(m_service->requestAuthorization()), status);
        QVERIFY(!m_manager->calls.contains(u"requestWhenInUseAuthorization"_s));
    }

    void anUndeterminedStatusIsAskedFor_data() { determinedStatuses(); }
    void anUndeterminedStatusIsAskedFor()
    {
        QFETCH(const Status, status);
        auto task = m_service->requestAuthorization();
        QCOMPARE(m_manager->calls.last(), u"requestWhenInUseAuthorization"_s);
        turnEventLoop();
        QVERIFY(!task.isReady());
        m_manager->decide(status);
        QCOMPARE(runTask(std::move(task)), status);
    }

    void aChangeToNotDeterminedLeavesTheRequestWaiting()
    {
        auto task = m_service->requestAuthorization();
        m_manager->decide(Status::NotDetermined);
        turnEventLoop();
        QVERIFY(!task.isReady());
        m_manager->decide(Status::Denied);
        QCOMPARE(runTask(std::move(task)), Status::Denied);
    }

    void theStatusIsTheOneAtTheTimeOfTheCallback()
    {
        auto task = m_service->requestAuthorization();
        m_manager->decide(Status::Denied);
        m_manager->status = Status::NotDetermined;
        QCOMPARE(runTask(std::move(task)), Status::Denied);
    }

    void theStatusIsReadAnewForEveryCall()
    {
        m_manager->status = Status::Denied;
        QCOMPARE(runTask(m_service->requestAuthorization()), Status::Denied);
        m_manager->status = Status::AuthorizedAlways;
        QCOMPARE(runTask(m_service->requestAuthorization()), Status::AuthorizedAlways);
    }

    void aSecondAuthorizationRequestReplacesTheFirstWhichNeverReturns()
    {
        spawn(noteEnd(m_service->requestAuthorization(), &m_first));
        spawn(noteEnd(m_service->requestAuthorization(), &m_second));
        m_manager->decide(Status::AuthorizedAlways);
        turnEventLoop();
        m_manager->decide(Status::Denied);
        turnEventLoop();
        QCOMPARE(m_second, QStringList(u"answered"_s));
        QVERIFY(m_first.isEmpty());
    }

    void aDecisionThatNobodyWaitsForIsDropped()
    {
        m_manager->decide(Status::Denied);
        turnEventLoop();
        m_manager->status = Status::NotDetermined;
        const auto task = m_service->requestAuthorization();
        turnEventLoop();
        QVERIFY(!task.isReady());
    }

    void anyStatusButAuthorizedAlwaysDeniesTheLocation_data()
    {
        QTest::addColumn<Status>("status");
        QTest::newRow("0, not determined") << Status::NotDetermined;
        QTest::newRow("1, restricted") << Status::Restricted;
        QTest::newRow("2, denied") << Status::Denied;
        QTest::newRow("4, when in use") << Status::AuthorizedWhenInUse;
    }
    void anyStatusButAuthorizedAlwaysDeniesTheLocation()
    {
        QFETCH(const Status, status);
        m_manager->status = status;
        const auto task = m_service->currentLocation();
        QVERIFY(task.isReady());
        QCOMPARE(errorOfTask<AppError>(m_service->currentLocation()), AppError::locationDenied());
        QVERIFY(!m_manager->calls.contains(u"requestLocation"_s));
    }

    // Deliberate: "authorized while in use" is returned unchanged, but does not allow a position.
    void whenInUseIsReturnedButLetsNoLocationThrough()
    {
        m_manager->status = Status::AuthorizedWhenInUse;
        QCOMPARE(runTask(m_service->requestAuthorization()), Status::AuthorizedWhenInUse);
        QCOMPARE(errorOfTask<AppError>(m_service->currentLocation()), AppError::locationDenied());
    }

    void aFixIsAskedForOnceAndReturned()
    {
        auto task = waitForLocation();
        QCOMPARE(m_manager->calls.count(u"requestLocation"_s), 1);
        turnEventLoop();
        QVERIFY(!task.isReady());
        emit m_manager->locationsUpdated({locationAt(10.7)});
        QCOMPARE(runTask(std::move(task)), locationAt(10.7));
    }

    void theLastOfSeveralFixesCounts()
    {
        auto task = waitForLocation();
        emit m_manager->locationsUpdated({locationAt(1), locationAt(2), locationAt(3)});
        QCOMPARE(runTask(std::move(task)), locationAt(3));
    }

    void noFixAtAllLeavesTheRequestWaiting()
    {
        auto task = waitForLocation();
        emit m_manager->locationsUpdated({});
        turnEventLoop();
        QVERIFY(!task.isReady());
        emit m_manager->locationsUpdated({locationAt(4)});
        QCOMPARE(runTask(std::move(task)), locationAt(4));
    }

    void aFailureCarriesThePlatformsWords()
    {
        auto task = waitForLocation();
        emit m_manager->failed(u"No fix."_s);
        const auto error = errorOfTask<AppError>(std::move(task));
        QCOMPARE(error, AppError::locationFailed(u"No fix."_s));
        QCOMPARE(error->errorDescription(), u"Location error: No fix."_s);
    }

    void onlyTheFirstAnswerCounts()
    {
        auto task = waitForLocation();
        emit m_manager->locationsUpdated({locationAt(1)});
        emit m_manager->failed(u"too late"_s);
        emit m_manager->locationsUpdated({locationAt(2)});
        QCOMPARE(runTask(std::move(task)), locationAt(1));
    }

    void aFailureBeforeAFixCounts()
    {
        auto task = waitForLocation();
        emit m_manager->failed(u"No fix."_s);
        emit m_manager->locationsUpdated({locationAt(1)});
        QVERIFY(errorOfTask<AppError>(std::move(task)));
    }

    void answersThatNobodyWaitsForAreDropped()
    {
        emit m_manager->locationsUpdated({locationAt(1)});
        emit m_manager->failed(u"unsolicited"_s);
        turnEventLoop();
        auto task = waitForLocation();
        turnEventLoop();
        QVERIFY(!task.isReady());
        emit m_manager->locationsUpdated({locationAt(2)});
        QCOMPARE(runTask(std::move(task)), locationAt(2));
    }

    void aSecondLocationRequestReplacesTheFirstWhichNeverReturns()
    {
        spawn(noteEnd(waitForLocation(), &m_first));
        spawn(noteEnd(waitForLocation(), &m_second));
        QCOMPARE(m_manager->calls.count(u"requestLocation"_s), 2);
        emit m_manager->locationsUpdated({locationAt(1)});
        turnEventLoop();
        emit m_manager->locationsUpdated({locationAt(2)});
        emit m_manager->failed(u"late"_s);
        turnEventLoop();
        QCOMPARE(m_second, QStringList(u"answered"_s));
        QVERIFY(m_first.isEmpty());
    }

    void theTwoWaitersAreApart()
    {
        auto authorization = m_service->requestAuthorization();
        auto location = waitForLocation();
        emit m_manager->locationsUpdated({locationAt(1)});
        QCOMPARE(runTask(std::move(location)), locationAt(1));
        QVERIFY(!authorization.isReady());
        m_manager->decide(Status::AuthorizedAlways);
        QCOMPARE(runTask(std::move(authorization)), Status::AuthorizedAlways);
    }

    void aWaiterNeverGoesOnInsideTheCallback()
    {
        spawn(noteEnd(waitForLocation(), &m_first));
        emit m_manager->locationsUpdated({locationAt(1)});
        QVERIFY(m_first.isEmpty());
        turnEventLoop();
        QCOMPARE(m_first, QStringList(u"answered"_s));
    }

    void whoeverWaitsIsAbandonedWithTheService()
    {
        spawn(noteEnd(m_service->requestAuthorization(), &m_first));
        spawn(noteEnd(waitForLocation(), &m_first));
        spawn(noteEnd(waitForLocation(), &m_first));
        m_service.reset();
        QCOMPARE(m_first.count(u"abandoned"_s), 3);
    }

    void aCallbackOnItsWayFindsTheServiceGone()
    {
        spawn(noteEnd(waitForLocation(), &m_first));
        emit m_manager->locationsUpdated({locationAt(1)});
        m_manager->decide(Status::Denied);
        m_service.reset();
        turnEventLoop();
        QCOMPARE(m_first, QStringList(u"abandoned"_s));
    }

private:
    static void determinedStatuses()
    {
        QTest::addColumn<Status>("status");
        QTest::newRow("1, restricted") << Status::Restricted;
        QTest::newRow("2, denied") << Status::Denied;
        QTest::newRow("3, always") << Status::AuthorizedAlways;
        QTest::newRow("4, when in use") << Status::AuthorizedWhenInUse;
    }

    [[nodiscard]] Task<Location> waitForLocation()
    {
        m_manager->status = Status::AuthorizedAlways;
        return m_service->currentLocation();
    }

    /// The outcomes of the waits. A replaced wait ends only with the service, after its case.
    QStringList m_first;
    QStringList m_second;
    FakeLocationManager *m_manager = nullptr;
    std::unique_ptr<CoreLocationService> m_service;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::CoreLocationServiceTest)
#include "CoreLocationServiceTest.moc"
