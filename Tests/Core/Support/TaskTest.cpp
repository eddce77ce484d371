#include "Core/Support/Tasks/Task.h"

#include "Core/Support/AppError.h"
#include "Tests/Support/RunTask.h"
#include "Tests/Support/Services/LastWords.h"

#include <QThread>

#include <exception>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

using Number = std::unique_ptr<int>;

/// A call that ends when the test says so.
class Facility final
{
public:
    void ask(Completion<Number> completion)
    {
        ++calls;
        open = std::move(completion);
    }

    int calls = 0;
    Completion<Number> open;
};

Task<int> answerOf(Facility *facility)
{
    Pending<Number> pending;
    facility->ask(pending.completion());
    const auto number = co_await pending;
    co_return *number;
}

Task<int> doubled(Facility *facility)
{
    auto answer = answerOf(facility);
    const auto number = co_await answer;
    co_return 2 * number;
}

Task<int> answerHeardLate(Facility *facility, Facility *other)
{
    Pending<Number> pending;
    facility->ask(pending.completion());
    Pending<Number> later;
    other->ask(later.completion());
    co_await later;
    const auto number = co_await pending;
    co_return *number;
}

Task<> throwBeforeWaiting(Facility *facility)
{
    Pending<Number> pending;
    facility->ask(pending.completion());
    throw AppError::network(u"changed my mind"_s);
    co_await pending;
}

Task<> waitForNobody()
{
    Pending<Number> pending;
    co_await pending;
}

Task<> note(Facility *facility, QStringList *events)
{
    auto answer = answerOf(facility);
    const auto number = co_await answer;
    events->append(QString::number(number));
}

Task<> holdWhileWaiting(std::shared_ptr<int> held, Facility *facility)
{
    auto answer = answerOf(facility);
    co_await answer;
    *held = 1;
}

Task<> destroyAsker(std::unique_ptr<Facility> *owner, bool *isDone)
{
    auto answer = answerOf(owner->get());
    co_await answer;
    owner->reset();
    *isDone = true;
}

Task<> throwAppError()
{
    throw AppError::network(u"lost"_s);
    co_return;
}

Task<> throwNumber()
{
    throw 7;
    co_return;
}

Outcome<Number> success(int number)
{
    return Outcome<Number>::success(std::make_unique<int>(number));
}

} // namespace

class TaskTest final : public QObject
{
    Q_OBJECT

private slots:
    void aTaskStartsAtTheCall()
    {
        Facility facility;
        const auto task = doubled(&facility);
        QCOMPARE(facility.calls, 1);
        QVERIFY(!task.isReady());
        facility.open = nullptr;
        turnEventLoop();
    }

    void aSuccessComesAsItsValue()
    {
        Facility facility;
        auto task = doubled(&facility);
        facility.open(success(21));
        QCOMPARE(runTask(std::move(task)), 42);
    }

    void aFailureIsThrownWithItsType()
    {
        Facility facility;
        auto task = doubled(&facility);
        facility.open(Outcome<Number>::failure(AppError::network(u"lost"_s)));
        QCOMPARE(errorOfTask<AppError>(std::move(task)), AppError::network(u"lost"_s));
    }

    void aCaughtErrorKeepsItsTypeInAnOutcome()
    {
        const auto error = std::make_exception_ptr(AppError::decoding(u"no value"_s));
        auto outcome = Outcome<Number>::failure(error);
        QVERIFY(!outcome.isSuccess());
        QVERIFY_THROWS_EXCEPTION(AppError, static_cast<void>(outcome.take()));
    }

    void theWaiterNeverGoesOnInsideTheCompletion()
    {
        Facility facility;
        QStringList events;
        const auto task = note(&facility, &events);
        facility.open(success(1));
        events.append(u"completed"_s);
        turnEventLoop();
        QCOMPARE(events, QStringList({u"completed"_s, u"1"_s}));
        QVERIFY(task.isReady());
    }

    void theWaiterMayDestroyTheFacility()
    {
        auto facility = std::make_unique<Facility>();
        bool isDone = false;
        const auto task = destroyAsker(&facility, &isDone);
        facility->open(success(1));
        turnEventLoop();
        QVERIFY(isDone);
        QVERIFY(!facility);
    }

    void anOutcomeBeforeTheWaitIsKept()
    {
        Facility facility;
        Facility other;
        auto task = answerHeardLate(&facility, &other);
        facility.open(success(5));
        turnEventLoop();
        QVERIFY(!task.isReady());
        other.open(success(0));
        QCOMPARE(runTask(std::move(task)), 5);
    }

    void anOutcomeAfterTheCoroutineIsGoneIsDropped()
    {
        Facility facility;
        QVERIFY(errorOfTask<AppError>(throwBeforeWaiting(&facility)));
        facility.open(success(5));
        turnEventLoop();
        QVERIFY(facility.open);
    }

    void onlyTheFirstOutcomeCounts()
    {
        Facility facility;
        auto task = answerOf(&facility);
        facility.open(success(1));
        facility.open(success(2));
        facility.open(Outcome<Number>::failure(AppError::noCafeFound()));
        QCOMPARE(runTask(std::move(task)), 1);
    }

    void aDroppedTaskRunsToItsEnd()
    {
        Facility facility;
        QStringList events;
        {
            const auto task = note(&facility, &events);
        }
        facility.open(success(3));
        turnEventLoop();
        QCOMPARE(events, QStringList(u"3"_s));
    }

    void aCompletionDestroyedUncalledAbandonsTheWaiter()
    {
        Facility facility;
        auto task = doubled(&facility);
        facility.open = nullptr;
        QVERIFY(!task.isReady());
        QVERIFY(errorOfTask<Abandoned>(std::move(task)));
    }

    void aCompletionLivesAsLongAsItsLastCopy()
    {
        Facility facility;
        auto task = doubled(&facility);
        auto copy = facility.open;
        facility.open = nullptr;
        turnEventLoop();
        QVERIFY(!task.isReady());
        copy = nullptr;
        QVERIFY(errorOfTask<Abandoned>(std::move(task)));
    }

    void aCompletionDestroyedAfterItsCallChangesNothing()
    {
        Facility facility;
        auto task = doubled(&facility);
        facility.open(success(4));
        facility.open = nullptr;
        QCOMPARE(runTask(std::move(task)), 8);
    }

    void waitingForACallThatWasNeverMadeIsAbandoned()
    {
        QVERIFY(errorOfTask<Abandoned>(waitForNobody()));
    }

    void aCompletionOfAnotherThreadComesToTheMainThread()
    {
        Facility facility;
        auto task = doubled(&facility);
        QThread *thread = QThread::create([&facility] {
            const auto completion = std::exchange(facility.open, nullptr);
            completion(success(6));
        });
        thread->start();
        QVERIFY(thread->wait());
        delete thread;
        QVERIFY(!task.isReady());
        QCOMPARE(runTask(std::move(task)), 12);
    }

    void aSpawnedTaskRuns()
    {
        Facility facility;
        QStringList events;
        spawn(note(&facility, &events));
        facility.open(success(9));
        turnEventLoop();
        QCOMPARE(events, QStringList(u"9"_s));
    }

    void aStrayExceptionEndsTheProgramWithItsText()
    {
        const auto words = lastWords([] { spawn(throwAppError()); });
        QVERIFY(words);
        QVERIFY2(words->contains("Network error: lost"), words->constData());
    }

    void aStrayObjectThatIsNoExceptionEndsTheProgram()
    {
        QVERIFY(lastWords([] { spawn(throwNumber()); }));
    }

    void aSpawnedTaskThatIsAbandonedEndsInSilence()
    {
        spawn(waitForNobody());
        turnEventLoop();
        QVERIFY(!lastWords([] {
            spawn(waitForNobody());
            turnEventLoop();
        }));
    }

    void whatAnAbandonedTaskHoldsIsFreedWithoutAnEventLoop()
    {
        auto facility = std::make_unique<Facility>();
        const auto held = std::make_shared<int>(0);
        spawn(holdWhileWaiting(held, facility.get()));
        facility.reset();
        QCOMPARE(held.use_count(), 2L);
        unwindAbandonedTasks();
        QCOMPARE(held.use_count(), 1L);
        QCOMPARE(*held, 0);
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::TaskTest)
#include "TaskTest.moc"
