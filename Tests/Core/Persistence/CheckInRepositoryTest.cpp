#include "Core/Persistence/ModelContainer+App.h"
#include "Core/Persistence/SwiftDataCheckInRepository.h"
#include "Models/Cafe.h"
#include "Models/CheckIn.h"
#include "Models/PlaceCandidate.h"
#include "Models/WeatherSnapshot.h"
#include "Models/WorkRatings.h"
#include "Platform/Clock/FakeClock.h"
#include "Platform/Files/FakeFileManager.h"
#include "Platform/ObjectStore/StoreError.h"
#include "Tests/Support/Instants.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <QTimeZone>
#include <QUuid>
#include <SQLiteCpp/SQLiteCpp.h>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quorvel::tests {

namespace {

PlaceCandidate candidate(const QString &name, std::optional<QString> mapItemIdentifier)
{
    return {.id = u"1"_s,
            .name = name,
            .latitude = 10.77,
            .longitude = 106.7,
            .distanceMeters = 12,
            .category = u"Cafe"_s,
            .address = u"1 Lê Lợi"_s,
            .mapItemIdentifier = std::move(mapItemIdentifier)};
}

/// A repository with a stopped clock, over a store in a file that a test can inspect.
struct Visits
{
    QTemporaryDir folder;
    QString path = folder.filePath(u"Quorvel/Quorvel.store"_s);
    FakeFileManager fileManager{{folder.path()}};
    FakeClock clock{instant(u"2026-11-21T12:00:00Z"_s)};
    std::unique_ptr<SwiftDataCheckInRepository> repository = open();

    std::unique_ptr<SwiftDataCheckInRepository> open()
    {
        QDir(folder.path()).mkpath(u"Quorvel"_s);
        return std::make_unique<SwiftDataCheckInRepository>(
            AppModelContainer::make(InMemory::No, fileManager), CheckInPhotoStore(fileManager),
            clock);
    }

    void reopen()
    {
        repository.reset();
        repository = open();
    }

    static std::shared_ptr<CheckIn> visit(const std::shared_ptr<Cafe> &cafe, Instant date,
                                          const QString &note = {})
    {
        return std::make_shared<CheckIn>(QUuid::createUuid(), date, note, std::nullopt,
                                         std::nullopt, WorkRatings{3, 3, 3, 3}, std::nullopt, cafe);
    }

    void checkIn(const std::optional<QString> &mapItemIdentifier, Instant date,
                 const QString &note = {})
    {
        const auto cafe = repository->findOrCreateCafe(candidate(u"Cà phê"_s, mapItemIdentifier));
        repository->save(visit(cafe, date, note));
    }

    [[nodiscard]] SQLite::Database inspect() const
    {
        return {path.toStdString(), SQLite::OPEN_READWRITE};
    }

    [[nodiscard]] int count(const std::string &table) const
    {
        return inspect().execAndGet("SELECT count(*) FROM " + table).getInt();
    }
};

QStringList notes(const std::vector<std::shared_ptr<CheckIn>> &checkIns)
{
    QStringList result;
    for (const auto &checkIn : checkIns)
        result.append(checkIn->note());
    return result;
}

} // namespace

class CheckInRepositoryTest final : public QObject
{
    Q_OBJECT

private slots:
    void anEmptyStoreListsNothing()
    {
        Visits visits;
        QVERIFY(visits.repository->allCheckIns().empty());
        QVERIFY(!visits.repository->hasCheckedInToday(u"node/1"_s));
    }

    void visitsAreListedNewestFirst()
    {
        Visits visits;
        const Instant noon = visits.clock.now();
        visits.checkIn(u"a"_s, noon, u"second"_s);
        visits.checkIn(u"b"_s, noon - 1ms, u"third"_s);
        visits.checkIn(u"c"_s, noon + 1ms, u"first"_s);
        const QStringList newestFirst{u"first"_s, u"second"_s, u"third"_s};
        QCOMPARE(notes(visits.repository->allCheckIns()), newestFirst);
        visits.reopen();
        QCOMPARE(notes(visits.repository->allCheckIns()), newestFirst);
    }

    void visitsOfTheSameInstantKeepTheStoresOrder()
    {
        Visits visits;
        QStringList saved;
        for (int i = 0; i < 40; ++i) {
            saved.append(QString::number(i));
            visits.checkIn(u"a"_s, visits.clock.now(), saved.back());
        }
        QCOMPARE(notes(visits.repository->allCheckIns()), saved);
    }

    void everyFieldOfAVisitComesBack()
    {
        Visits visits;
        const WeatherSnapshot weather{.temperatureC = -3.5,
                                      .apparentTemperatureC = -7.25,
                                      .weatherCode = 71,
                                      .isDay = false,
                                      .capturedAt = visits.clock.now() - 7ms};
        const WorkRatings ratings{.wifiSpeed = 1, .outlets = 5, .noise = -2, .quietForCalls = 9};
        const auto id = QUuid::createUuid();
        {
            const auto cafe =
                visits.repository->findOrCreateCafe(candidate(u"Đủng đỉnh"_s, u"n"_s));
            visits.repository->save(
                std::make_shared<CheckIn>(id, visits.clock.now(), u"Ghi chú\n“đậm”"_s,
                                          u"1 Lê Lợi"_s, u"visit.jpg"_s, ratings, weather, cafe));
        }
        visits.reopen();
        const auto checkIn = visits.repository->allCheckIns().front();
        QCOMPARE(checkIn->id(), id);
        QCOMPARE(checkIn->date(), visits.clock.now());
        QCOMPARE(checkIn->note(), u"Ghi chú\n“đậm”"_s);
        QCOMPARE(checkIn->address(), std::optional(u"1 Lê Lợi"_s));
        QCOMPARE(checkIn->photoFilename(), std::optional(u"visit.jpg"_s));
        QCOMPARE(checkIn->ratings(), ratings);
        QCOMPARE(checkIn->weather(), std::optional(weather));
        QCOMPARE(checkIn->cafe()->name(), u"Đủng đỉnh"_s);
        QCOMPARE(checkIn->cafe()->latitude(), 10.77);
        QCOMPARE(checkIn->cafe()->longitude(), 106.7);
        QCOMPARE(checkIn->cafe()->lastKnownSSID(), std::optional<QString>());
        QCOMPARE(checkIn->cafe()->mapItemIdentifier(), std::optional(u"n"_s));
    }

    void aVisitWithoutWeatherStaysWithout()
    {
        Visits visits;
        visits.checkIn(u"a"_s, visits.clock.now());
        visits.reopen();
        const auto checkIn = visits.repository->allCheckIns().front();
        QCOMPARE(checkIn->weather(), std::optional<WeatherSnapshot>());
        QCOMPARE(checkIn->address(), std::optional<QString>());
        QCOMPARE(checkIn->photoFilename(), std::optional<QString>());
    }

    void theSameIdentifierIsTheSameCafeAndKeepsItsFirstName()
    {
        Visits visits;
        const auto first = visits.repository->findOrCreateCafe(candidate(u"First"_s, u"n/1"_s));
        first->setLastKnownSSID(u"Guests"_s);
        auto renamed = candidate(u"Second"_s, u"n/1"_s);
        renamed.latitude = 1;
        const auto second = visits.repository->findOrCreateCafe(renamed);
        QCOMPARE(second, first);
        QCOMPARE(second->name(), u"First"_s);
        QCOMPARE(second->latitude(), 10.77);
        QCOMPARE(second->lastKnownSSID(), std::optional(u"Guests"_s));
        QCOMPARE(visits.count("Cafe"), 1);
    }

    void aNewCafeIsStoredAtOnceWithAnIdentityOfItsOwn()
    {
        Visits visits;
        const auto one = visits.repository->findOrCreateCafe(candidate(u"One"_s, u"n/1"_s));
        const auto other = visits.repository->findOrCreateCafe(candidate(u"One"_s, u"n/2"_s));
        QVERIFY(one->isStored() && other->isStored());
        QVERIFY(one != other);
        QVERIFY(!one->id().isNull());
        QVERIFY(one->id() != other->id());
        QVERIFY(one->checkIns().empty());
    }

    void aCandidateWithoutIdentifierGetsANewCafeEveryTime()
    {
        Visits visits;
        const auto nameless = candidate(u"Cart"_s, std::nullopt);
        const auto first = visits.repository->findOrCreateCafe(nameless);
        const auto second = visits.repository->findOrCreateCafe(nameless);
        QVERIFY(first != second);
        QCOMPARE(first->mapItemIdentifier(), std::optional<QString>());
        QCOMPARE(visits.count("Cafe WHERE mapItemIdentifier IS NULL"), 2);
    }

    void anEmptyIdentifierIsNotAMissingOne()
    {
        Visits visits;
        (void)visits.repository->findOrCreateCafe(candidate(u"Cart"_s, std::nullopt));
        const auto empty = visits.repository->findOrCreateCafe(candidate(u"E"_s, u""_s));
        QCOMPARE(visits.repository->findOrCreateCafe(candidate(u"E"_s, u""_s)), empty);
        QCOMPARE(visits.count("Cafe"), 2);
    }

    void noIdentifierIsNeverCheckedInToday()
    {
        Visits visits;
        visits.checkIn(std::nullopt, visits.clock.now());
        QVERIFY(!visits.repository->hasCheckedInToday(std::nullopt));
    }

    void onlyTheSameCafesVisitCounts()
    {
        Visits visits;
        visits.checkIn(u"n/1"_s, visits.clock.now());
        QVERIFY(visits.repository->hasCheckedInToday(u"n/1"_s));
        QVERIFY(!visits.repository->hasCheckedInToday(u"n/2"_s));
    }

    void anyVisitOfTheDayCounts()
    {
        Visits visits;
        for (const auto &when : {-48h, 0h, -24h})
            visits.checkIn(u"n/1"_s, visits.clock.now() + when);
        QVERIFY(visits.repository->hasCheckedInToday(u"n/1"_s));
        visits.clock.instant += 24h;
        QVERIFY(!visits.repository->hasCheckedInToday(u"n/1"_s));
    }

    void aVisitCountsUntilTheNextLocalMidnight_data()
    {
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<QString>("visit");
        QTest::addColumn<QString>("midnight");
        const auto row = [](const char *name, const char *zone, const QString &visit,
                            const QString &midnight) {
            QTest::newRow(name) << QByteArray(zone) << visit << midnight;
        };
        row("UTC", "UTC", u"2026-11-21T23:59:00Z"_s, u"2026-11-22T00:00:00Z"_s);
        row("Saigon", "Asia/Ho_Chi_Minh", u"2026-11-21T16:59:00Z"_s, u"2026-11-21T17:00:00Z"_s);
        row("New York", "America/New_York", u"2026-11-22T04:59:00Z"_s, u"2026-11-22T05:00:00Z"_s);
        row("Kathmandu", "Asia/Kathmandu", u"2026-11-21T18:14:00Z"_s, u"2026-11-21T18:15:00Z"_s);
        row("Kiritimati", "Pacific/Kiritimati", u"2026-11-21T09:59:00Z"_s,
            u"2026-11-21T10:00:00Z"_s);
        row("Berlin, before the 23-hour day", "Europe/Berlin", u"2026-03-28T22:59:00Z"_s,
            u"2026-03-28T23:00:00Z"_s);
        row("Berlin, after the 23-hour day", "Europe/Berlin", u"2026-03-29T21:59:00Z"_s,
            u"2026-03-29T22:00:00Z"_s);
        row("Berlin, after the 25-hour day", "Europe/Berlin", u"2026-10-25T22:59:00Z"_s,
            u"2026-10-25T23:00:00Z"_s);
        row("Havana, midnight skipped", "America/Havana", u"2026-03-08T04:59:00Z"_s,
            u"2026-03-08T05:00:00Z"_s);
        row("Havana, midnight twice", "America/Havana", u"2026-11-01T03:59:00Z"_s,
            u"2026-11-01T04:00:00Z"_s);
    }

    void aVisitCountsUntilTheNextLocalMidnight()
    {
        QFETCH(QByteArray, zone);
        QFETCH(QString, visit);
        QFETCH(QString, midnight);
        Visits visits;
        visits.clock.timeZone = QTimeZone(zone);
        QVERIFY(visits.clock.timeZone.isValid());
        visits.checkIn(u"n/1"_s, instant(visit));
        for (const Instant now : {instant(visit), instant(midnight) - 1ms}) {
            visits.clock.instant = now;
            QVERIFY(visits.repository->hasCheckedInToday(u"n/1"_s));
        }
        visits.clock.instant = instant(midnight);
        QVERIFY(!visits.repository->hasCheckedInToday(u"n/1"_s));

        visits.checkIn(u"n/1"_s, instant(midnight));
        QVERIFY(visits.repository->hasCheckedInToday(u"n/1"_s));
    }

    void theSecondHourOfADoubledMidnightIsStillTheSameDay()
    {
        Visits visits;
        visits.clock.timeZone = QTimeZone("America/Havana");
        visits.checkIn(u"n/1"_s, instant(u"2026-11-01T04:30:00Z"_s));
        visits.clock.instant = instant(u"2026-11-01T05:30:00Z"_s);
        QVERIFY(visits.repository->hasCheckedInToday(u"n/1"_s));
        visits.clock.instant = instant(u"2026-11-02T04:59:59.999Z"_s);
        QVERIFY(visits.repository->hasCheckedInToday(u"n/1"_s));
        visits.clock.instant = instant(u"2026-11-02T05:00:00Z"_s);
        QVERIFY(!visits.repository->hasCheckedInToday(u"n/1"_s));
    }

    void aTravellersDayIsThatOfTheirZoneNow()
    {
        Visits visits;
        visits.clock.timeZone = QTimeZone("Asia/Ho_Chi_Minh");
        visits.clock.instant = instant(u"2026-11-21T16:00:00Z"_s); // 23:00 there
        visits.checkIn(u"n/1"_s, visits.clock.now());
        visits.clock.instant += 2h;
        QVERIFY(!visits.repository->hasCheckedInToday(u"n/1"_s));
        visits.clock.timeZone = QTimeZone("Europe/London");
        QVERIFY(visits.repository->hasCheckedInToday(u"n/1"_s));
    }

    void savingTwiceStoresOnce()
    {
        Visits visits;
        const auto cafe = visits.repository->findOrCreateCafe(candidate(u"One"_s, u"n/1"_s));
        const auto visit = Visits::visit(cafe, visits.clock.now());
        visits.repository->save(visit);
        visits.repository->save(visit);
        QCOMPARE(visits.count("CheckIn"), 1);
    }

    void aSavedVisitIsListedByItsCafe()
    {
        Visits visits;
        const auto cafe = visits.repository->findOrCreateCafe(candidate(u"One"_s, u"n/1"_s));
        const auto visit = Visits::visit(cafe, visits.clock.now());
        visits.repository->save(visit);
        QCOMPARE(cafe->checkIns(), std::vector{visit});
        QCOMPARE(visit->cafe(), cafe);
    }

    void aVisitWhoseSaveFailsIsStoredByTheNext()
    {
        Visits visits;
        const auto cafe = visits.repository->findOrCreateCafe(candidate(u"One"_s, u"n/1"_s));
        const auto visit = Visits::visit(cafe, visits.clock.now(), u"precious"_s);
        auto other = visits.inspect();
        other.exec("BEGIN IMMEDIATE");
        QVERIFY_THROWS_EXCEPTION(StoreError, visits.repository->save(visit));
        QVERIFY(visit->isPending());
        QCOMPARE(visits.count("CheckIn"), 0);
        QVERIFY(visits.repository->hasCheckedInToday(u"n/1"_s));
        other.exec("ROLLBACK");
        visits.repository->save(visit);
        QCOMPARE(visits.count("CheckIn WHERE note = 'precious'"), 1);
    }

    void aCafeWhoseSaveFailsIsFoundAgainAndStoredWithItsVisit()
    {
        Visits visits;
        auto other = visits.inspect();
        other.exec("BEGIN IMMEDIATE");
        const auto place = candidate(u"One"_s, u"n/1"_s);
        QVERIFY_THROWS_EXCEPTION(StoreError, (void)visits.repository->findOrCreateCafe(place));
        QCOMPARE(visits.count("Cafe"), 0);
        other.exec("ROLLBACK");
        const auto cafe = visits.repository->findOrCreateCafe(place);
        visits.repository->save(Visits::visit(cafe, visits.clock.now()));
        QCOMPARE(visits.count("Cafe"), 1);
        QCOMPARE(visits.count("CheckIn"), 1);
    }

    void aStoredVisitThatCannotBeDecodedFailsTheList()
    {
        Visits visits;
        visits.checkIn(u"n/1"_s, visits.clock.now());
        visits.inspect().exec("UPDATE CheckIn SET noise = 'loud'");
        visits.reopen();
        try {
            (void)visits.repository->allCheckIns();
            QFAIL("a score that is no number was read");
        } catch (const StoreError &error) {
            QCOMPARE(error.errorDescription(), u"The stored value “noise” is of the wrong type."_s);
        }
    }

    void whatIsDecidedInATurnIsDecidedOnce()
    {
        Visits visits;
        int decisions = 0;
        visits.repository->inTurn([&decisions] { ++decisions; });
        QCOMPARE(decisions, 1);
    }

    void twoProcessesSeeEachOthersVisits()
    {
        Visits visits;
        const auto other = visits.open();
        visits.checkIn(u"n/1"_s, visits.clock.now(), u"ours"_s);
        QVERIFY(other->hasCheckedInToday(u"n/1"_s));
        const auto cafe = other->findOrCreateCafe(candidate(u"Same"_s, u"n/1"_s));
        QCOMPARE(cafe->name(), u"Cà phê"_s);
        other->save(Visits::visit(cafe, visits.clock.now() + 1s, u"theirs"_s));
        QCOMPARE(notes(visits.repository->allCheckIns()), (QStringList{u"theirs"_s, u"ours"_s}));
        QCOMPARE(visits.count("Cafe"), 1);
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::CheckInRepositoryTest)
#include "CheckInRepositoryTest.moc"
