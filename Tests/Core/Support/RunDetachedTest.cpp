#include "Core/Support/Tasks/RunDetached.h"

#include "Core/Support/AppError.h"
#include "Tests/Support/RunTask.h"

#include <QSemaphore>
#include <QThread>

#include <functional>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

/// Records the thread and the moment of its destruction.
class Burden final
{
public:
    explicit Burden(bool *isGone)
        : m_isGone(isGone)
    {}
    Q_DISABLE_COPY_MOVE(Burden)
    ~Burden() { *m_isGone = true; }

private:
    bool *m_isGone;
};

Task<QThread *> threadAfter(std::function<void()> work)
{
    auto task = runDetached(work);
    co_await task;
    co_return QThread::currentThread();
}

} // namespace

class RunDetachedTest final : public QObject
{
    Q_OBJECT

private slots:
    void theFunctionRunsOnAnotherThread()
    {
        const auto thread = runTask(runDetached([] { return QThread::currentThread(); }));
        QVERIFY(thread != QThread::currentThread());
    }

    void theCallerGoesOnOnItsOwnThread()
    {
        QCOMPARE(runTask(threadAfter([] {})), QThread::currentThread());
    }

    void theMainThreadGoesOnMeanwhile()
    {
        QSemaphore gate;
        auto task = runDetached([&gate] { gate.acquire(); });
        turnEventLoop();
        QVERIFY(!task.isReady());
        gate.release();
        runTask(std::move(task));
    }

    void aValueThatCannotBeCopiedComesAndGoes()
    {
        auto number = std::make_unique<int>(21);
        auto task = runDetached(
            [number = std::move(number)] { return std::make_unique<int>(2 * *number); });
        QCOMPARE(*runTask(std::move(task)), 42);
    }

    void anErrorOfTheProgramKeepsItsType()
    {
        auto task = runDetached([]() -> int { throw AppError::decoding(u"no value"_s); });
        QCOMPARE(errorOfTask<AppError>(std::move(task)), AppError::decoding(u"no value"_s));
    }

    void anyOtherExceptionKeepsItsType()
    {
        auto task = runDetached([] { throw std::out_of_range("far out"); });
        const auto error = errorOfTask<std::out_of_range>(std::move(task));
        QVERIFY(error);
        QCOMPARE(error->what(), "far out");
    }

    void whatTheFunctionHoldsIsGoneBeforeItsValueComes()
    {
        bool isGone = false;
        auto burden = std::make_unique<Burden>(&isGone);
        auto task = runDetached([burden = std::move(burden)] { return 1; });
        QCOMPARE(runTask(std::move(task)), 1);
        QVERIFY(isGone);
    }

    void aDroppedTaskStillRuns()
    {
        QSemaphore ran;
        {
            const auto task = runDetached([&ran] { ran.release(); });
        }
        QVERIFY(ran.tryAcquire(1, 5'000));
        QThreadPool::globalInstance()->waitForDone();
        turnEventLoop();
    }

    void manyRunAndEachHasItsOwnValue()
    {
        constexpr int count = 200;
        std::vector<Task<int>> tasks;
        for (int number = 0; number < count; ++number)
            tasks.push_back(runDetached([number] { return number * number; }));
        for (int number = 0; number < count; ++number)
            QCOMPARE(runTask(std::move(tasks[size_t(number)])), number * number);
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::RunDetachedTest)
#include "RunDetachedTest.moc"
