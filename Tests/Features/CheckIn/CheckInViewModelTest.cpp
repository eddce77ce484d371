#include "Features/CheckIn/CheckInViewModel.h"

#include "Core/Keychain/FakeKeychainStore.h"
#include "Core/Persistence/FakeCheckInRepository.h"
#include "Core/Support/AppError.h"
#include "Models/Cafe.h"
#include "Models/CheckIn.h"
#include "Models/PlaceCandidate.h"
#include "Models/WeatherSnapshot.h"
#include "Models/WorkRatings.h"
#include "Platform/Clock/FakeClock.h"
#include "Tests/Support/Instants.h"

#include <QTest>
#include <QUuid>

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

using SaveState = CheckInViewModel::SaveState;

PlaceCandidate cafe(const QString &identifier)
{
    return {.id = identifier,
            .name = u"Blue Door"_s,
            .latitude = 1,
            .longitude = 2,
            .address = u"1 Main Street"_s,
            .mapItemIdentifier = identifier};
}

LocatedSnapshot snapshot()
{
    return {.selectedCafe = cafe(u"blue"_s),
            .weather = WeatherSnapshot{.temperatureC = 23, .apparentTemperatureC = 25},
            .ssid = u"Cafe 5G"_s};
}

LocatedSnapshot without(std::optional<QString> ssid)
{
    auto result = snapshot();
    result.ssid = std::move(ssid);
    return result;
}

struct World
{
    FakeCheckInRepository repository;
    FakeKeychainStore keychain;
    FakeClock clock{instant(u"2026-11-21T12:00:00Z"_s)};
    NotificationCenter center;
};

/// A store that keeps a failed save for its next save.
class PendingRepository final : public CheckInRepository
{
public:
    void inTurn(const std::function<void()> &action) override { action(); }
    [[nodiscard]] std::vector<std::shared_ptr<CheckIn>> allCheckIns() override { return {}; }
    [[nodiscard]] std::shared_ptr<Cafe> findOrCreateCafe(const PlaceCandidate &) override
    {
        return m_cafe;
    }
    [[nodiscard]] bool hasCheckedInToday(const std::optional<QString> &) override { return false; }
    void save(const std::shared_ptr<CheckIn> &checkIn) override
    {
        m_pending.insert(checkIn);
        if (fails)
            throw FakeCheckInRepository::Failure(u"Disk full."_s);
        stored.merge(m_pending);
    }

    bool fails = false;
    std::set<std::shared_ptr<CheckIn>> stored;

private:
    std::shared_ptr<Cafe> m_cafe =
        std::make_shared<Cafe>(QUuid(), QString(), 0, 0, std::nullopt, std::nullopt);
    std::set<std::shared_ptr<CheckIn>> m_pending;
};

const WorkRatings fours{.wifiSpeed = 4, .outlets = 4, .noise = 4, .quietForCalls = 4};

} // namespace

class CheckInViewModelTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_world.emplace();
        m_form.emplace(m_world->repository, m_world->keychain, m_world->clock, m_world->center);
        m_log.clear();
        const auto log = [this](auto signal, const QString &name) {
            connect(&*m_form, signal, this, [this, name] { m_log.append(name); });
        };
        log(&CheckInViewModel::noteChanged, u"note"_s);
        log(&CheckInViewModel::ratingsChanged, u"ratings"_s);
        log(&CheckInViewModel::wifiPasswordDraftChanged, u"draft"_s);
        log(&CheckInViewModel::hasCheckedInTodayChanged, u"today"_s);
        connect(&*m_form, &CheckInViewModel::saveStateChanged, this,
                [this] { m_log.append(wordFor(m_form->saveState())); });
        m_posts = m_world->center.observe(checkInDidSave, [this] { m_log.append(u"posted"_s); });
    }

    void theFormBeginsEmptyWithAllRatingsAtThree()
    {
        QCOMPARE(m_form->note(), u""_s);
        QVERIFY(m_form->ratings() == (WorkRatings{3, 3, 3, 3}));
        QCOMPARE(m_form->wifiPasswordDraft(), u""_s);
        QVERIFY(m_form->saveState().isIdle());
        QVERIFY(!m_form->hasCheckedInToday());
    }

    void aSaveStoresTheVisitWithWhatTheFormSays()
    {
        m_form->setNote(u"quiet <b>corner</b>"_s);
        m_form->setRatings({5, 4, 1, 2});
        m_form->submit(snapshot());
        QCOMPARE(m_world->repository.visits.size(), 1U);
        const CheckIn &visit = *m_world->repository.visits.front();
        QVERIFY(!visit.id().isNull());
        QVERIFY(visit.date() == m_world->clock.instant);
        QCOMPARE(visit.note(), u"quiet <b>corner</b>"_s);
        QVERIFY(visit.ratings() == (WorkRatings{5, 4, 1, 2}));
        QVERIFY(visit.weather() == snapshot().weather);
        QCOMPARE(visit.address(), std::nullopt);
        QCOMPARE(visit.photoFilename(), std::nullopt);
        QCOMPARE(visit.cafe(), m_world->repository.cafes.front());
        QCOMPARE(visit.cafe()->lastKnownSSID(), u"Cafe 5G"_s);
    }

    void aVisitWithoutWeatherHasNone()
    {
        auto cloudy = snapshot();
        cloudy.weather = std::nullopt;
        m_form->submit(cloudy);
        QVERIFY(!m_world->repository.visits.front()->weather());
    }

    void aSaveTellsOfItselfInItsOrder()
    {
        typeEverything();
        m_form->submit(snapshot());
        QCOMPARE(m_log, QStringList({u"loading"_s, u"posted"_s, u"today"_s, u"loaded"_s, u"note"_s,
                                     u"ratings"_s, u"draft"_s}));
        // Asks again in its own turn, since another process may have stored today's visit
        // meanwhile.
        QCOMPARE(m_world->repository.calls, QStringList({u"inTurn"_s, u"hasCheckedInToday"_s,
                                                         u"findOrCreateCafe"_s, u"save"_s}));
    }

    void afterASaveTheFormIsAsAtTheBeginning()
    {
        typeEverything();
        m_form->submit(snapshot());
        QCOMPARE(m_form->note(), u""_s);
        QVERIFY(m_form->ratings() == (WorkRatings{3, 3, 3, 3}));
        QCOMPARE(m_form->wifiPasswordDraft(), u""_s);
        QVERIFY(m_form->saveState().isLoaded());
        QVERIFY(m_form->hasCheckedInToday());
        QCOMPARE(m_log.count(u"posted"_s), 1);
    }

    void theVisitIsStoredWhenItIsPosted()
    {
        std::size_t stored = 0;
        const auto observation = m_world->center.observe(
            checkInDidSave, [this, &stored] { stored = m_world->repository.visits.size(); });
        m_form->submit(snapshot());
        QCOMPARE(stored, 1U);
    }

    void aSecondSaveOnTheSameDayChangesNothing()
    {
        m_form->submit(snapshot());
        typeEverything();
        m_world->repository.calls.clear();
        m_form->submit(snapshot());
        QVERIFY(m_log.isEmpty());
        QVERIFY(m_world->repository.calls.isEmpty());
        QVERIFY(m_form->saveState().isLoaded());
        QCOMPARE(m_form->note(), u"note"_s);
        QVERIFY(m_world->keychain.saved.isEmpty());
    }

    void aVisitThatAnotherProcessHasStoredMeanwhileIsRefused()
    {
        m_form->refreshCheckedInTodayStatus(cafe(u"blue"_s));
        typeEverything();
        m_world->repository.checkedInToday = {u"blue"_s};
        m_form->submit(snapshot());
        QCOMPARE(m_log, QStringList({u"loading"_s, u"today"_s, u"idle"_s}));
        QVERIFY(m_form->hasCheckedInToday());
        QVERIFY(m_world->repository.visits.empty());
        QVERIFY(m_world->keychain.saved.isEmpty());
        QCOMPARE(m_form->note(), u"note"_s);
    }

    void aTurnThatDoesNotComeIsTold()
    {
        typeEverything();
        m_world->repository.failing = {u"inTurn"_s};
        m_world->repository.failure = u"In use."_s;
        m_form->submit(snapshot());
        QCOMPARE(m_form->saveState().errorValue()->errorDescription(), u"Network error: In use."_s);
        QVERIFY(m_world->repository.visits.empty());
        formIsKept();
    }

    void aSnapshotWithoutACafeIsRefusedBeforeAnythingIsWritten()
    {
        typeEverything();
        m_form->submit({.ssid = u"Cafe 5G"_s});
        QVERIFY(m_log.isEmpty());
        QVERIFY(m_world->keychain.saved.isEmpty());
        QVERIFY(m_world->repository.calls.isEmpty());
        QCOMPARE(m_form->note(), u"note"_s);
    }

    void aSaveThatIsUnderWayStartsNoSecond()
    {
        connect(&*m_form, &CheckInViewModel::saveStateChanged, this,
                [this] { m_form->submit(snapshot()); });
        m_form->submit(snapshot());
        QCOMPARE(m_world->repository.visits.size(), 1U);
    }

    void aTypedPasswordIsKeptUnderTheNetwork()
    {
        m_form->setWifiPasswordDraft(u"short"_s);
        m_form->submit(snapshot());
        QCOMPARE(m_world->keychain.passwords.value(u"Cafe 5G"_s), u"short"_s);
    }

    void anEmptyDraftWritesNoPasswordButTheNetworkIsNoted()
    {
        m_form->submit(snapshot());
        QVERIFY(m_world->keychain.saved.isEmpty());
        QCOMPARE(m_world->repository.cafes.front()->lastKnownSSID(), u"Cafe 5G"_s);
    }

    void withoutANetworkNothingOfItIsWritten()
    {
        knowCafe(u"Before"_s);
        m_form->setWifiPasswordDraft(u"12345678"_s);
        m_form->submit(without(std::nullopt));
        QVERIFY(m_world->keychain.saved.isEmpty());
        QCOMPARE(m_world->repository.cafes.front()->lastKnownSSID(), u"Before"_s);
        QVERIFY(m_form->saveState().isLoaded());
    }

    void aNetworkWithoutANameKeepsItsPasswordButIsNotNoted()
    {
        knowCafe(u"Before"_s);
        m_form->setWifiPasswordDraft(u"12345678"_s);
        m_form->submit(without(u""_s));
        QCOMPARE(m_world->keychain.saved, QStringList({u""_s}));
        QCOMPARE(m_world->repository.cafes.front()->lastKnownSSID(), u"Before"_s);
    }

    void aKeychainThatFailsLeavesTheStoreUntouched()
    {
        typeEverything();
        m_world->keychain.failure = KeychainError::unexpectedItemFormat();
        m_form->submit(snapshot());
        QCOMPARE(m_log, QStringList({u"loading"_s, u"error"_s}));
        QVERIFY(*m_form->saveState().errorValue() ==
                AppError::network(u"Keychain item exists but is not a valid UTF-8 string."_s));
        QVERIFY(m_world->repository.cafes.empty());
        QVERIFY(m_world->repository.visits.empty());
        formIsKept();
    }

    void aStoreThatFailsIsTold_data()
    {
        QTest::addColumn<QString>("operation");
        QTest::newRow("the café") << u"findOrCreateCafe"_s;
        QTest::newRow("the visit") << u"save"_s;
    }

    void aStoreThatFailsIsTold()
    {
        QFETCH(const QString, operation);
        typeEverything();
        m_world->repository.failing = {operation};
        m_world->repository.failure = u"Disk full."_s;
        m_form->submit(snapshot());
        QCOMPARE(m_log, QStringList({u"loading"_s, u"error"_s}));
        QCOMPARE(m_form->saveState().errorValue()->errorDescription(),
                 u"Network error: Disk full."_s);
        QCOMPARE(m_world->repository.calls.last(), operation);
        // Earlier steps are not undone.
        QCOMPARE(m_world->keychain.saved, QStringList({u"Cafe 5G"_s}));
        formIsKept();

        m_world->repository.failing.clear();
        m_form->submit(snapshot());
        QVERIFY(m_form->saveState().isLoaded());
        QCOMPARE(m_world->repository.visits.front()->note(), u"note"_s);
    }

    void aVisitThatCouldNotBeStoredIsStoredOnce()
    {
        PendingRepository store;
        CheckInViewModel form(store, m_world->keychain, m_world->clock, m_world->center);
        form.setNote(u"first"_s);
        store.fails = true;
        form.submit(snapshot());
        QVERIFY(form.saveState().isError());
        store.fails = false;
        form.setNote(u"second"_s);
        form.submit(snapshot());
        QCOMPARE(store.stored.size(), 1U);
        QCOMPARE((*store.stored.begin())->note(), u"second"_s);
        // The next visit is a new one.
        form.refreshCheckedInTodayStatus(std::nullopt);
        form.submit(snapshot());
        QCOMPARE(store.stored.size(), 2U);
    }

    void theStatusIsAskedByTheMapIdentifier_data()
    {
        QTest::addColumn<bool>("hasVisit");
        QTest::addColumn<bool>("storeFails");
        QTest::addColumn<bool>("expected");
        QTest::newRow("a visit") << true << false << true;
        QTest::newRow("none") << false << false << false;
        QTest::newRow("a failure counts as none") << true << true << false;
    }

    void theStatusIsAskedByTheMapIdentifier()
    {
        QFETCH(const bool, hasVisit);
        QFETCH(const bool, storeFails);
        QFETCH(const bool, expected);
        if (hasVisit)
            m_world->repository.checkedInToday = {u"blue"_s};
        if (storeFails)
            m_world->repository.failing = {u"hasCheckedInToday"_s};
        m_form->refreshCheckedInTodayStatus(cafe(u"blue"_s));
        QCOMPARE(m_form->hasCheckedInToday(), expected);
        QCOMPARE(m_log, expected ? QStringList({u"today"_s}) : QStringList());
        m_form->refreshCheckedInTodayStatus(cafe(u"blue"_s));
        QCOMPARE(m_log.size(), expected ? 1 : 0);
        QCOMPARE(m_world->repository.calls.size(), 2);
    }

    void aFailureTakesAnEarlierYesBack()
    {
        m_world->repository.checkedInToday = {u"blue"_s};
        m_form->refreshCheckedInTodayStatus(cafe(u"blue"_s));
        m_world->repository.failing = {u"hasCheckedInToday"_s};
        m_form->refreshCheckedInTodayStatus(cafe(u"blue"_s));
        QVERIFY(!m_form->hasCheckedInToday());
    }

    void aVisitThatCouldNotBeStoredCanBeSavedAgain()
    {
        m_world->repository.failing = {u"save"_s};
        m_form->submit(snapshot());
        m_world->repository.checkedInToday = {u"blue"_s};
        m_form->refreshCheckedInTodayStatus(cafe(u"blue"_s));
        QVERIFY(!m_form->hasCheckedInToday());
        m_world->repository.failing = {};
        m_form->submit(snapshot());
        QCOMPARE(m_world->repository.visits.size(), 1U);
        m_form->refreshCheckedInTodayStatus(cafe(u"blue"_s));
        QVERIFY(m_form->hasCheckedInToday());
    }

    void anotherCafeEndsTheLastSave()
    {
        m_form->submit(snapshot());
        m_log.clear();
        m_form->refreshCheckedInTodayStatus(cafe(u"other"_s));
        QCOMPARE(m_log, QStringList({u"idle"_s, u"today"_s}));
    }

    void noCafeAfterAFailedSaveIsIdleAndNotVisited()
    {
        m_world->repository.failing = {u"save"_s};
        m_form->submit(snapshot());
        m_log.clear();
        m_world->repository.calls.clear();
        m_form->refreshCheckedInTodayStatus(std::nullopt);
        QVERIFY(m_form->saveState().isIdle());
        QVERIFY(!m_form->hasCheckedInToday());
        QCOMPARE(m_log, QStringList({u"idle"_s}));
        QVERIFY(m_world->repository.calls.isEmpty());
    }

    void signalsTellOfRealChangesOnly()
    {
        typeEverything();
        m_log.clear();
        m_form->setNote(u"note"_s);
        m_form->setRatings(fours);
        m_form->setWifiPasswordDraft(u"12345678"_s);
        m_form->refreshCheckedInTodayStatus(std::nullopt);
        QVERIFY(m_log.isEmpty());
        m_form->setNote(u"Note"_s);
        m_form->setRatings({4, 4, 4, 5});
        m_form->setWifiPasswordDraft(u"12345678 "_s);
        QCOMPARE(m_log, QStringList({u"note"_s, u"ratings"_s, u"draft"_s}));
    }

private:
    void typeEverything()
    {
        m_form->setNote(u"note"_s);
        m_form->setRatings(fours);
        m_form->setWifiPasswordDraft(u"12345678"_s);
        m_log.clear();
    }
    void formIsKept()
    {
        QCOMPARE(m_form->note(), u"note"_s);
        QVERIFY(m_form->ratings() == fours);
        QCOMPARE(m_form->wifiPasswordDraft(), u"12345678"_s);
        QVERIFY(!m_form->hasCheckedInToday());
        QVERIFY(!m_log.contains(u"posted"_s));
    }
    void knowCafe(const QString &ssid)
    {
        m_world->repository.findOrCreateCafe(cafe(u"blue"_s))->setLastKnownSSID(ssid);
    }
    [[nodiscard]] static QString wordFor(const SaveState &state)
    {
        if (state.isIdle())
            return u"idle"_s;
        if (state.isLoading())
            return u"loading"_s;
        return state.isLoaded() ? u"loaded"_s : u"error"_s;
    }

    std::optional<World> m_world;
    std::optional<CheckInViewModel> m_form;
    NotificationCenter::Observation m_posts;
    QStringList m_log;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::CheckInViewModelTest)
#include "CheckInViewModelTest.moc"
