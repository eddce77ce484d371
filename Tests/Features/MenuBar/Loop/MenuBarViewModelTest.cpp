#include "Features/MenuBar/Loop/MenuBarViewModel.h"

#include "Core/Keychain/KeychainError.h"
#include "Core/Support/AppError.h"
#include "Models/WeatherSnapshot.h"
#include "Platform/Errors/Outcome.h"
#include "Services/Places/FakePlacesService.h"
#include "Tests/Features/MenuBar/Loop/LoopWorld.h"

#include <QTest>

#include <chrono>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quorvel::tests {

namespace {

using State = LoopWorld::State;
using States = std::vector<State>;
using Calls = QList<qsizetype>;

const auto start = MenuBarInput::start();
const auto retry = MenuBarInput::retry();
const auto cancel = MenuBarInput::cancel();

MenuBarInput select(const QString &name)
{
    return MenuBarInput::selectCafe(LoopWorld::cafe(name, 7));
}

LocatedSnapshot with(LocatedSnapshot snapshot, const QString &selected)
{
    snapshot.selectedCafe = LoopWorld::cafe(selected, 7);
    return snapshot;
}

State denied()
{
    return State::error(AppError::locationDenied());
}

} // namespace

class MenuBarViewModelTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_world.emplace();
        m_world->wifi.ssid = u"Cafe 5G"_s;
        m_world->wifi.signal = WifiSignal(-65);
    }

    void itBeginsIdleAndAsksNothing()
    {
        LoopWorld::settle();
        QVERIFY(m_world->viewModel->state() == State::idle());
        QCOMPARE(m_world->newCalls(), (Calls{0, 0, 0}));
    }

    void sendReturnsBeforeAnythingChanges()
    {
        m_world->willFindAll();
        m_world->viewModel->send(start);
        QVERIFY(m_world->viewModel->state().isIdle());
        LoopWorld::settle();
        QVERIFY(m_world->viewModel->state().isLoaded());
    }

    void theFirstStartLoadsEverything()
    {
        m_world->willFindAll();
        m_world->send(start);
        QVERIFY(m_world->newStates() == States({State::loading(), State::loaded(m_world->full())}));
        QCOMPARE(m_world->newCalls(), (Calls{1, 1, 1}));
        const FakePlacesService::Request asked{.around = {0, 106.7}, .radiusMeters = 100};
        QVERIFY(m_world->places.calls.requests.front() == asked);
    }

    void theWeatherIsAskedAtTheCafeNotAtTheUser()
    {
        loadOnce();
        const auto near = LoopWorld::cafe(u"Near"_s, 42).coordinate();
        QVERIFY(m_world->weather.calls.requests.back() == near);
    }

    void theNetworkIsReadWhileTheWeatherIsOnItsWayAndTheSignalAfterIt()
    {
        m_world->willLocate();
        m_world->places.calls.willSucceed(LoopWorld::found());
        m_world->weather.calls.willHold();
        m_world->send(start);
        m_world->wifi.ssid = u"Later"_s;
        m_world->wifi.signal = WifiSignal(-90);
        QVERIFY(m_world->keychain.read.isEmpty());
        m_world->weather.calls.release(Outcome<WeatherSnapshot>::success(LoopWorld::sun()));
        LoopWorld::settle();
        QCOMPARE(shown().ssid, u"Cafe 5G"_s);
        QVERIFY(shown().signal == WifiSignal(-90));
        QCOMPARE(m_world->keychain.read, QStringList({u"Cafe 5G"_s}));
    }

    void aKeychainThatHoldsThePasswordIsToldOf()
    {
        m_world->keychain.passwords.insert(u"Cafe 5G"_s, u""_s);
        loadOnce();
        QVERIFY(shown().hasRememberedPassword);
    }

    void aKeychainThatFailsRemembersNothing()
    {
        m_world->keychain.passwords.insert(u"Cafe 5G"_s, u"12345678"_s);
        m_world->keychain.failure = KeychainError::unexpectedItemFormat();
        loadOnce();
        QVERIFY(!shown().hasRememberedPassword);
        QVERIFY(shown().selectedCafe);
    }

    void withoutANetworkTheKeychainIsNotAsked()
    {
        m_world->wifi.ssid = std::nullopt;
        m_world->wifi.signal = std::nullopt;
        loadOnce();
        QVERIFY(shown() == m_world->full());
        QVERIFY(m_world->keychain.read.isEmpty());
    }

    void aUserWhoIsAskedAndAgreesIsLocated()
    {
        m_world->location.holdAuthorization();
        m_world->send(start);
        QVERIFY(m_world->viewModel->state().isLoading());
        m_world->location.locate(LoopWorld::home());
        m_world->places.calls.willSucceed(LoopWorld::found());
        m_world->weather.calls.willSucceed(LoopWorld::sun());
        m_world->location.authorizationWaiter.finish(AuthorizationStatus::AuthorizedAlways);
        LoopWorld::settle();
        QVERIFY(shown() == m_world->full());
    }

    void onlyAuthorizedAlwaysIsNotDenied_data()
    {
        QTest::addColumn<AuthorizationStatus>("status");
        QTest::newRow("not determined") << AuthorizationStatus::NotDetermined;
        QTest::newRow("restricted") << AuthorizationStatus::Restricted;
        QTest::newRow("denied") << AuthorizationStatus::Denied;
        QTest::newRow("when in use") << AuthorizationStatus::AuthorizedWhenInUse;
    }

    void onlyAuthorizedAlwaysIsNotDenied()
    {
        QFETCH(const AuthorizationStatus, status);
        m_world->location.authorize(status);
        m_world->send(start);
        QVERIFY(m_world->newStates() == States({State::loading(), denied()}));
        QCOMPARE(m_world->newCalls(), (Calls{0, 0, 0}));
    }

    void aStartFiveMinutesLaterAtTheSamePlaceAsksForAPositionOnly()
    {
        loadOnce();
        m_world->clock.instant += 5min;
        m_world->willLocate();
        m_world->send(start);
        QVERIFY(m_world->newStates().empty());
        QVERIFY(shown() == m_world->full());
        QCOMPARE(m_world->newCalls(), (Calls{1, 0, 0}));
    }

    void aStartAtExactly600SecondsIsStillFresh()
    {
        loadOnce();
        m_world->clock.instant += 600s;
        m_world->willLocate();
        m_world->send(start);
        QCOMPARE(m_world->newCalls(), (Calls{1, 0, 0}));
    }

    void aStartAMillisecondLaterLoadsAfreshAndShowsTheOldMeanwhile()
    {
        loadOnce();
        m_world->clock.instant += 600001ms;
        m_world->willLocate();
        m_world->places.calls.willSucceed({LoopWorld::cafe(u"New"_s, 7)});
        m_world->weather.calls.willHold();
        m_world->send(start);
        QVERIFY(m_world->newStates().empty());
        QVERIFY(shown() == m_world->full());
        m_world->weather.calls.release(Outcome<WeatherSnapshot>::success(LoopWorld::sun()));
        LoopWorld::settle();
        auto expected = with(m_world->full(), u"New"_s);
        expected.nearbyCandidates = {LoopWorld::cafe(u"New"_s, 7)};
        QVERIFY(m_world->newStates() == States({State::loaded(expected)}));
        QCOMPARE(m_world->newCalls(), (Calls{1, 1, 1}));
    }

    void reuseDoesNotRenewTheTimeStamp()
    {
        loadOnce();
        m_world->clock.instant += 599s;
        m_world->willLocate();
        m_world->send(start);
        QCOMPARE(m_world->newCalls(), (Calls{1, 0, 0}));
        m_world->clock.instant += 2s;
        m_world->willFindAll();
        m_world->send(start);
        QCOMPARE(m_world->newCalls(), (Calls{1, 1, 1}));
    }

    void reuseEndsBeyondAHundredMetres_data()
    {
        QTest::addColumn<double>("meters");
        QTest::addColumn<bool>("isReused");
        QTest::newRow("50 m") << 50.0 << true;
        QTest::newRow("99.9 m") << 99.9 << true;
        QTest::newRow("100.1 m") << 100.1 << false;
        QTest::newRow("150 m") << 150.0 << false;
        QTest::newRow("nowhere") << qQNaN() << false;
    }

    void reuseEndsBeyondAHundredMetres()
    {
        QFETCH(const double, meters);
        QFETCH(const bool, isReused);
        loadOnce();
        m_world->willFindAll(meters);
        if (isReused)
            m_world->willLocate(meters);
        m_world->send(start);
        QCOMPARE(m_world->newCalls(), isReused ? (Calls{1, 0, 0}) : (Calls{1, 1, 1}));
    }

    void aRetryShowsLoadingAndNeverReuses()
    {
        loadOnce();
        m_world->willFindAll();
        m_world->send(retry);
        QVERIFY(m_world->newStates() == States({State::loading(), State::loaded(m_world->full())}));
        QCOMPARE(m_world->newCalls(), (Calls{1, 1, 1}));
    }

    void aRetryRenewsTheCache()
    {
        loadOnce();
        m_world->clock.instant += 599s;
        m_world->willFindAll(150);
        m_world->send(retry);
        m_world->clock.instant += 599s;
        m_world->willLocate(150);
        static_cast<void>(m_world->newCalls());
        m_world->send(start);
        QCOMPARE(m_world->newCalls(), (Calls{1, 0, 0}));
    }

    void aWeatherThatFailsIsAbsentAndTheRestIsCached()
    {
        m_world->willLocate();
        m_world->places.calls.willSucceed(LoopWorld::found());
        m_world->weather.calls.willFail(AppError::network(u"down"_s));
        m_world->send(start);
        auto expected = m_world->full();
        expected.weather = std::nullopt;
        QVERIFY(shown() == expected);
        m_world->willLocate();
        static_cast<void>(m_world->newCalls());
        m_world->send(start);
        QCOMPARE(m_world->newCalls(), (Calls{1, 0, 0}));
    }

    void everyMishapHasItsFallback_data()
    {
        QTest::addColumn<QString>("mishap");
        for (const auto &mishap : {u"denied"_s, u"no fix"_s, u"no search"_s, u"empty"_s, u"far"_s})
            QTest::newRow(qPrintable(mishap)) << mishap;
    }

    void everyMishapHasItsFallback()
    {
        QFETCH(const QString, mishap);
        const State fallback = fallbackOf(mishap);
        // Without a cache.
        script(mishap);
        m_world->send(start);
        QVERIFY(m_world->newStates() == States({State::loading(), fallback}));
        // None of that was cached.
        loadOnce();
        // A fresh cache stays.
        script(mishap);
        m_world->send(start);
        QVERIFY(m_world->newStates().empty());
        QVERIFY(shown() == m_world->full());
        // A retry ignores the cache.
        script(mishap);
        m_world->send(retry);
        QVERIFY(m_world->newStates() == States({State::loading(), fallback}));
        // The next start finds the cache again.
        script(mishap);
        m_world->send(start);
        QVERIFY(m_world->newStates() == States({State::loaded(m_world->full())}));
        // A stale cache is shown but not kept.
        m_world->clock.instant += 601s;
        script(mishap);
        m_world->send(start);
        QVERIFY(m_world->newStates() == States({fallback}));
    }

    void theFallbackSaysWhichPasswordIsRemembered()
    {
        m_world->keychain.passwords.insert(u"Cafe 5G"_s, u"12345678"_s);
        script(u"no fix"_s);
        m_world->send(start);
        QVERIFY(shown().hasRememberedPassword);
        QCOMPARE(m_world->keychain.read, QStringList({u"Cafe 5G"_s}));
    }

    void aCacheThatIsKeptAsksNeitherRadioNorKeychain()
    {
        loadOnce();
        m_world->keychain.read.clear();
        script(u"no fix"_s);
        m_world->send(start);
        QVERIFY(m_world->keychain.read.isEmpty());
    }

    void pickingACafeChangesThatAlone()
    {
        loadOnce();
        m_world->send(select(u"Far"_s));
        const auto expected = with(m_world->full(), u"Far"_s);
        QVERIFY(m_world->newStates() == States({State::loaded(expected)}));
        QCOMPARE(m_world->newCalls(), (Calls{0, 0, 0}));
        m_world->willLocate();
        m_world->send(start);
        QVERIFY(shown() == expected);
    }

    void pickingRenewsTheTimeButNotThePlace()
    {
        loadOnce();
        m_world->clock.instant += 599s;
        m_world->send(select(u"Far"_s));
        m_world->clock.instant += 600s;
        m_world->willLocate(99);
        m_world->send(start);
        QCOMPARE(m_world->newCalls(), (Calls{1, 0, 0}));
        m_world->willFindAll(101);
        m_world->send(start);
        QCOMPARE(m_world->newCalls(), (Calls{1, 1, 1}));
    }

    void pickingInTheFallbackCachesIt()
    {
        script(u"no fix"_s);
        m_world->send(start);
        m_world->send(select(u"Picked"_s));
        const auto expected = with(m_world->degraded(), u"Picked"_s);
        QVERIFY(shown() == expected);
        QVERIFY(shown().nearbyCandidates.empty());
        static_cast<void>(m_world->newStates());
        // It is fresh, so it is kept if the next position fails.
        script(u"no fix"_s);
        m_world->send(start);
        QVERIFY(m_world->newStates().empty());
        // It has no position of its own, so the next found position loads everything.
        static_cast<void>(m_world->newCalls());
        m_world->willFindAll();
        m_world->send(start);
        QCOMPARE(m_world->newCalls(), (Calls{1, 1, 1}));
    }

    void pickingChangesNothingUnlessLoaded()
    {
        m_world->send(select(u"Far"_s));
        QVERIFY(m_world->viewModel->state().isIdle());
        script(u"denied"_s);
        m_world->send(start);
        m_world->send(select(u"Far"_s));
        QVERIFY(m_world->viewModel->state() == denied());
        m_world->willFindAll();
        static_cast<void>(m_world->newStates());
        m_world->send(start);
        QVERIFY(m_world->newStates() == States({State::loading(), State::loaded(m_world->full())}));
    }

    void pickingOrCancellingWhileLoadingLeavesItLoadingUntilTheNextStart_data()
    {
        QTest::addColumn<bool>("picks");
        QTest::newRow("pick") << true;
        QTest::newRow("cancel") << false;
    }

    void pickingOrCancellingWhileLoadingLeavesItLoadingUntilTheNextStart()
    {
        QFETCH(const bool, picks);
        m_world->willAuthorize();
        m_world->location.holdLocation();
        m_world->send(start);
        m_world->send(picks ? select(u"Far"_s) : cancel);
        m_world->location.locationWaiter.finish(LoopWorld::home());
        LoopWorld::settle();
        QVERIFY(m_world->newStates() == States({State::loading()}));
        QCOMPARE(m_world->newCalls(), (Calls{1, 0, 0}));
        m_world->willFindAll();
        m_world->send(start);
        QVERIFY(m_world->newStates() == States({State::loaded(m_world->full())}));
    }

    void pickingDuringARefreshEndsTheRefresh()
    {
        loadOnce();
        m_world->clock.instant += 601s;
        m_world->willLocate();
        m_world->places.calls.willHold();
        m_world->send(start);
        m_world->send(select(u"Far"_s));
        m_world->places.calls.release(
            Outcome<FakePlacesService::Candidates>::success({LoopWorld::cafe(u"New"_s, 1)}));
        LoopWorld::settle();
        QVERIFY(m_world->newStates() == States({State::loaded(with(m_world->full(), u"Far"_s))}));
    }

    void aLoadOvertakenInItsOwnTurnNeverBegins()
    {
        m_world->willFindAll();
        m_world->viewModel->send(retry);
        m_world->viewModel->send(start);
        LoopWorld::settle();
        QVERIFY(m_world->newStates() == States({State::loading(), State::loaded(m_world->full())}));
        QCOMPARE(m_world->newCalls(), (Calls{1, 1, 1}));
        m_world->viewModel->send(retry);
        m_world->send(cancel);
        QVERIFY(m_world->newStates().empty());
    }

    void aPickOvertakenInItsOwnTurnStillCounts()
    {
        loadOnce();
        m_world->willLocate();
        m_world->viewModel->send(select(u"Far"_s));
        m_world->send(start);
        QVERIFY(shown() == with(m_world->full(), u"Far"_s));
    }

    void whoeverHearsOfAStateMaySendAtOnce()
    {
        int answers = 0;
        QObject::connect(m_world->viewModel.get(), &MenuBarViewModel::stateChanged, this,
                         [this, &answers] {
                             if (shownOrNone() && answers++ == 0)
                                 m_world->viewModel->send(start);
                         });
        m_world->willFindAll();
        m_world->willLocate();
        m_world->send(start);
        QCOMPARE(m_world->newCalls(), (Calls{2, 1, 1}));
        QVERIFY(shown() == m_world->full());
    }

    void whoeverHearsOfLoadingMayCancelOrDestroy_data()
    {
        QTest::addColumn<bool>("destroys");
        QTest::newRow("cancel") << false;
        QTest::newRow("destroy") << true;
    }

    void whoeverHearsOfLoadingMayCancelOrDestroy()
    {
        QFETCH(const bool, destroys);
        QObject::connect(m_world->viewModel.get(), &MenuBarViewModel::stateChanged, this,
                         [this, destroys] {
                             if (destroys)
                                 m_world->viewModel.reset();
                             else
                                 m_world->viewModel->send(cancel);
                         });
        m_world->send(start);
        QVERIFY(m_world->location.calls.isEmpty());
    }

private:
    void loadOnce()
    {
        m_world->willFindAll();
        m_world->send(start);
        QVERIFY(m_world->viewModel->state() != State::loading());
        static_cast<void>(m_world->newCalls());
        static_cast<void>(m_world->newStates());
    }

    void script(const QString &mishap)
    {
        if (mishap == u"denied"_s)
            return m_world->location.authorize(AuthorizationStatus::Denied);
        if (mishap == u"no fix"_s) {
            m_world->willAuthorize();
            return m_world->location.refuseLocation(AppError::locationFailed(u"no fix"_s));
        }
        // Far away, so that a fresh cache is not reused.
        m_world->willLocate(150);
        if (mishap == u"no search"_s)
            m_world->places.calls.willFail(AppError::network(u"down"_s));
        else if (mishap == u"empty"_s)
            m_world->places.calls.willSucceed({});
        else
            m_world->places.calls.willSucceed({LoopWorld::cafe(u"Far away"_s, 100.5)});
    }
    [[nodiscard]] State fallbackOf(const QString &mishap) const
    {
        return mishap == u"denied"_s ? denied() : State::loaded(m_world->degraded());
    }

    [[nodiscard]] const LocatedSnapshot *shownOrNone() const
    {
        return m_world->viewModel->state().loadedValue();
    }
    [[nodiscard]] LocatedSnapshot shown() const
    {
        return shownOrNone() ? *shownOrNone() : LocatedSnapshot();
    }

    std::optional<LoopWorld> m_world;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::MenuBarViewModelTest)
#include "MenuBarViewModelTest.moc"
