#include "Features/MenuBar/Loop/SecondLook.h"

#include "Core/Support/AppError.h"
#include "Features/MenuBar/Loop/MenuBarInput.h"
#include "Platform/Errors/Outcome.h"
#include "Platform/Location/Location.h"
#include "Platform/SystemEvents/FakeSystemEvents.h"
#include "Tests/Features/MenuBar/Loop/LoopWorld.h"

#include <QCoreApplication>
#include <QTest>
#include <QTimerEvent>

#include <chrono>
#include <optional>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quorvel::tests {

namespace {

struct World
{
    World()
    {
        look.emplace(*loop.viewModel, events, [this] { return mayInterrupt; });
    }

    /// The panel opens and finds no café.
    void openWithoutCafe()
    {
        willNotFind();
        open();
    }
    void openWithoutWeather()
    {
        loop.willLocate();
        loop.places.calls.willSucceed(LoopWorld::found());
        loop.weather.calls.willFail(AppError::network(u"no route"_s));
        open();
    }
    void open()
    {
        loop.viewModel->send(MenuBarInput::start());
        look->appear();
        LoopWorld::settle();
        static_cast<void>(loop.newCalls());
    }
    void willNotFind()
    {
        loop.willLocate();
        loop.places.calls.willFail(AppError::network(u"no route"_s));
    }
    [[nodiscard]] QTimer *settling() const { return look->findChild<QTimer *>(u"settling"_s); }
    /// Fires the timer, as the event loop does after its time. Does nothing without a timer.
    void letSettle() const
    {
        if (settling()->isActive()) {
            QTimerEvent elapsed(settling()->timerId());
            QCoreApplication::sendEvent(settling(), &elapsed);
        }
        LoopWorld::settle();
    }
    /// The number of positions requested since the last call.
    [[nodiscard]] qsizetype newLooks() { return loop.newCalls().first(); }

    LoopWorld loop;
    FakeSystemEvents events;
    bool mayInterrupt = true;
    std::optional<SecondLook> look;
};

} // namespace

class SecondLookTest final : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.emplace(); }
    void cleanup() { m_world.reset(); }

    void aReturnMendsWhatWasMissing_data()
    {
        QTest::addColumn<Returning>("what");
        QTest::addColumn<bool>("hasCafe");
        QTest::newRow("network, café") << Returning::Network << false;
        QTest::newRow("radio, café") << Returning::Radio << false;
        QTest::newRow("machine, café") << Returning::Machine << false;
        QTest::newRow("network, weather") << Returning::Network << true;
        QTest::newRow("machine, weather") << Returning::Machine << true;
    }

    void aReturnMendsWhatWasMissing()
    {
        QFETCH(Returning, what);
        QFETCH(bool, hasCafe);
        if (hasCafe)
            world().openWithoutWeather();
        else
            world().openWithoutCafe();
        world().loop.willFindAll();
        world().events.bringBack(what);
        world().letSettle();
        QCOMPARE(world().loop.newCalls(), (QList<qsizetype>{1, 1, 1}));
        QCOMPARE(*world().loop.viewModel->state().loadedValue(), world().loop.full());
    }

    void nothingHappensBeforeItHasSettled()
    {
        world().openWithoutCafe();
        world().events.bringBack(Returning::Network);
        LoopWorld::settle();
        QCOMPARE(world().newLooks(), 0);
        QVERIFY(world().settling()->isActive());
        QVERIFY(world().settling()->isSingleShot());
    }

    void theNetworkIsGivenOneSecondAndEverythingElseEight_data()
    {
        using All = QList<Returning>;
        QTest::addColumn<All>("told");
        QTest::addColumn<std::chrono::milliseconds>("interval");
        QTest::newRow("network") << All{Returning::Network} << 1000ms;
        QTest::newRow("radio") << All{Returning::Radio} << 8000ms;
        QTest::newRow("machine") << All{Returning::Machine} << 8000ms;
        QTest::newRow("machine, then network")
            << All{Returning::Machine, Returning::Network} << 1000ms;
        QTest::newRow("network, then radio") << All{Returning::Network, Returning::Radio} << 1000ms;
    }

    void theNetworkIsGivenOneSecondAndEverythingElseEight()
    {
        QFETCH(QList<Returning>, told);
        QFETCH(std::chrono::milliseconds, interval);
        world().openWithoutCafe();
        for (const Returning what : told)
            world().events.bringBack(what);
        QCOMPARE(world().settling()->intervalAsDuration(), interval);
    }

    void severalSignalsOfOneReturnAreOneLook()
    {
        world().openWithoutCafe();
        world().loop.willFindAll();
        for (const auto what : {Returning::Machine, Returning::Radio, Returning::Network,
                                Returning::Network, Returning::Radio})
            world().events.bringBack(what);
        world().letSettle();
        world().letSettle();
        QCOMPARE(world().newLooks(), 1);
    }

    void aSecondFailureIsTheEndOfIt()
    {
        world().openWithoutCafe();
        world().willNotFind();
        world().events.bringBack(Returning::Network);
        world().letSettle();
        world().letSettle();
        QCOMPARE(world().newLooks(), 1);
        QVERIFY(!world().settling()->isActive());
        QCOMPARE(*world().loop.viewModel->state().loadedValue(), world().loop.degraded());
    }

    void theNextReturnIsLookedAfterAgain()
    {
        world().openWithoutCafe();
        world().willNotFind();
        world().events.bringBack(Returning::Network);
        world().letSettle();
        world().loop.willFindAll();
        world().events.bringBack(Returning::Network);
        world().letSettle();
        QCOMPARE(world().newLooks(), 2);
    }

    void aWholeResultIsLeftAlone()
    {
        world().loop.willFindAll();
        world().open();
        QVERIFY(!world().events.isFollowed);
        emit world().events.cameBack(Returning::Network);
        world().letSettle();
        QCOMPARE(world().newLooks(), 0);
    }

    void aRefusalIsLeftAlone()
    {
        world().loop.location.authorize(AuthorizationStatus::Denied);
        world().open();
        QVERIFY(!world().events.isFollowed);
    }

    void aChosenCafeIsNotTakenBackForItsWeather()
    {
        world().openWithoutWeather();
        world().events.bringBack(Returning::Network);
        const auto far = world().loop.viewModel->state().loadedValue()->nearbyCandidates.back();
        world().loop.send(MenuBarInput::selectCafe(far));
        world().letSettle();
        QCOMPARE(world().newLooks(), 0);
        QCOMPARE(world().loop.viewModel->state().loadedValue()->selectedCafe, far);
    }

    void aLoadThatRunsIsLeftToItself()
    {
        world().loop.willAuthorize();
        world().loop.location.holdLocation();
        world().open();
        world().events.bringBack(Returning::Network);
        world().letSettle();
        QCOMPARE(world().newLooks(), 0);
        world().loop.places.calls.willSucceed(LoopWorld::found());
        world().loop.weather.calls.willSucceed(LoopWorld::sun());
        world().loop.location.locationWaiter.end(Outcome<Location>::success(LoopWorld::home()));
        LoopWorld::settle();
        world().letSettle();
        QCOMPARE(world().newLooks(), 0);
        QCOMPARE(*world().loop.viewModel->state().loadedValue(), world().loop.full());
    }

    void whatComesBackDuringALoadThatFailsIsLookedAfterOnce()
    {
        world().loop.willAuthorize();
        world().loop.location.holdLocation();
        world().open();
        world().events.bringBack(Returning::Network);
        world().letSettle();
        const AppError late = AppError::locationFailed(u"too early"_s);
        world().loop.location.locationWaiter.end(Outcome<Location>::failure(late));
        LoopWorld::settle();
        world().willNotFind();
        world().letSettle();
        world().letSettle();
        QCOMPARE(world().newLooks(), 1);
    }

    void aLoadBehindACachedResultIsLeftToItself()
    {
        world().openWithoutWeather();
        world().loop.willAuthorize();
        world().loop.location.holdLocation();
        world().open();
        QVERIFY(world().loop.viewModel->isLocating());
        world().events.bringBack(Returning::Network);
        world().letSettle();
        QCOMPARE(world().newLooks(), 0);
    }

    void theUserIsNotInterruptedUntilTheyAreDone()
    {
        world().openWithoutCafe();
        world().mayInterrupt = false;
        world().events.bringBack(Returning::Network);
        world().letSettle();
        QCOMPARE(world().newLooks(), 0);
        world().mayInterrupt = true;
        world().look->reconsider();
        LoopWorld::settle();
        QCOMPARE(world().newLooks(), 0);
        world().loop.willFindAll();
        world().letSettle();
        QCOMPARE(world().newLooks(), 1);
    }

    void whoIsDoneWithoutAReturnIsNotInterrupted()
    {
        world().openWithoutCafe();
        world().look->reconsider();
        QVERIFY(!world().settling()->isActive());
    }

    void aClosedPanelFollowsNothing()
    {
        world().openWithoutCafe();
        world().events.bringBack(Returning::Network);
        world().look->disappear();
        QVERIFY(!world().events.isFollowed);
        QVERIFY(!world().settling()->isActive());
        world().letSettle();
        QCOMPARE(world().newLooks(), 0);
    }

    void whatCameBackBeforeAnOpeningIsNotCarriedIntoIt()
    {
        world().openWithoutCafe();
        world().events.bringBack(Returning::Network);
        world().look->disappear();
        world().openWithoutCafe();
        QVERIFY(!world().settling()->isActive());
        world().letSettle();
        QCOMPARE(world().newLooks(), 0);
    }

    void theSystemIsFollowedOnlyWhileItMatters()
    {
        QVERIFY(!world().events.isFollowed);
        world().openWithoutCafe();
        QVERIFY(world().events.isFollowed);
        world().loop.willFindAll();
        world().loop.send(MenuBarInput::retry());
        QVERIFY(!world().events.isFollowed);
    }

private:
    [[nodiscard]] World &world() { return *m_world; }

    std::optional<World> m_world;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::SecondLookTest)
#include "SecondLookTest.moc"
