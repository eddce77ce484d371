#include "Core/Support/Tasks/OneShotSlot.h"

#include "Core/Support/AppError.h"
#include "Tests/Support/RunTask.h"

#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

using Slot = OneShotSlot<QString>;

Task<QString> waitIn(Slot *slot)
{
    auto wait = slot->wait();
    const auto value = co_await wait;
    co_return value;
}

Task<QString> waitLate(Slot *slot, OneShotSlot<int> *gate)
{
    auto wait = slot->wait();
    auto opening = gate->wait();
    co_await opening;
    const auto value = co_await wait;
    co_return value;
}

Task<> noteEnd(Slot *slot, QStringList *events)
{
    auto waiting = waitIn(slot);
    try {
        const auto value = co_await waiting;
        events->append(value);
    } catch (const Abandoned &) {
        events->append(u"abandoned"_s);
    }
}

Task<> waitTwice(Slot *slot, QStringList *events)
{
    auto first = waitIn(slot);
    const auto one = co_await first;
    events->append(one);
    auto second = waitIn(slot);
    const auto two = co_await second;
    events->append(two);
}

Task<> destroySlot(std::unique_ptr<Slot> *owner, bool *isDone)
{
    auto waiting = waitIn(owner->get());
    co_await waiting;
    owner->reset();
    *isDone = true;
}

} // namespace

class OneShotSlotTest final : public QObject
{
    Q_OBJECT

private slots:
    void itWaitsUntilItIsFinished()
    {
        Slot slot;
        QVERIFY(!slot.isWaiting());
        auto task = waitIn(&slot);
        QVERIFY(slot.isWaiting());
        turnEventLoop();
        QVERIFY(!task.isReady());
        slot.finish(u"here"_s);
        QCOMPARE(runTask(std::move(task)), u"here"_s);
    }

    void aFailureIsThrownWithItsType()
    {
        Slot slot;
        auto task = waitIn(&slot);
        slot.fail(AppError::locationFailed(u"no fix"_s));
        QVERIFY(!slot.isWaiting());
        QCOMPARE(errorOfTask<AppError>(std::move(task)), AppError::locationFailed(u"no fix"_s));
    }

    void theSlotIsEmptyBeforeTheWaiterGoesOn()
    {
        Slot slot;
        QStringList events;
        spawn(noteEnd(&slot, &events));
        slot.finish(u"here"_s);
        QVERIFY(!slot.isWaiting());
        QVERIFY(events.isEmpty());
        turnEventLoop();
        QCOMPARE(events, QStringList(u"here"_s));
    }

    void onlyTheFirstResultCounts()
    {
        Slot slot;
        auto task = waitIn(&slot);
        slot.finish(u"first"_s);
        slot.finish(u"second"_s);
        slot.fail(AppError::noCafeFound());
        QCOMPARE(runTask(std::move(task)), u"first"_s);
    }

    void aResultThatNobodyWaitsForIsDropped()
    {
        Slot slot;
        slot.finish(u"early"_s);
        slot.fail(AppError::noCafeFound());
        auto task = waitIn(&slot);
        turnEventLoop();
        QVERIFY(!task.isReady());
        slot.finish(u"due"_s);
        QCOMPARE(runTask(std::move(task)), u"due"_s);
    }

    void aWaiterMayWaitAgain()
    {
        Slot slot;
        QStringList events;
        spawn(waitTwice(&slot, &events));
        slot.finish(u"one"_s);
        slot.finish(u"dropped"_s);
        turnEventLoop();
        QVERIFY(slot.isWaiting());
        slot.finish(u"two"_s);
        turnEventLoop();
        QCOMPARE(events, QStringList({u"one"_s, u"two"_s}));
    }

    void aResultBeforeTheAwaitIsKept()
    {
        Slot slot;
        OneShotSlot<int> gate;
        auto task = waitLate(&slot, &gate);
        slot.finish(u"early"_s);
        turnEventLoop();
        QVERIFY(!task.isReady());
        gate.finish(1);
        QCOMPARE(runTask(std::move(task)), u"early"_s);
    }

    void aSecondWaiterReplacesTheFirstWhichNeverReturns()
    {
        QStringList first;
        QStringList second;
        Slot slot;
        spawn(noteEnd(&slot, &first));
        spawn(noteEnd(&slot, &second));
        slot.finish(u"newest"_s);
        turnEventLoop();
        slot.finish(u"later"_s);
        slot.fail(AppError::noCafeFound());
        turnEventLoop();
        QCOMPARE(second, QStringList(u"newest"_s));
        QVERIFY(first.isEmpty());
    }

    void destroyingItAbandonsTheWaiterAndAllItReplaced()
    {
        QStringList events;
        {
            Slot slot;
            spawn(noteEnd(&slot, &events));
            spawn(noteEnd(&slot, &events));
            spawn(noteEnd(&slot, &events));
        }
        QCOMPARE(events, QStringList({u"abandoned"_s, u"abandoned"_s, u"abandoned"_s}));
    }

    void aResultOnItsWayOutlivesTheSlot()
    {
        QStringList events;
        {
            Slot slot;
            spawn(noteEnd(&slot, &events));
            slot.finish(u"here"_s);
        }
        QVERIFY(events.isEmpty());
        turnEventLoop();
        QCOMPARE(events, QStringList(u"here"_s));
    }

    void theWaiterMayDestroyTheSlot()
    {
        auto slot = std::make_unique<Slot>();
        bool isDone = false;
        spawn(destroySlot(&slot, &isDone));
        slot->finish(u"here"_s);
        turnEventLoop();
        QVERIFY(isDone);
        QVERIFY(!slot);
    }

    void aWaitThatIsNeverAwaitedDoesNoHarm()
    {
        Slot slot;
        {
            const auto wait = slot.wait();
        }
        slot.finish(u"nobody"_s);
        turnEventLoop();
        QVERIFY(!slot.isWaiting());
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::OneShotSlotTest)
#include "OneShotSlotTest.moc"
