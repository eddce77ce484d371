#include "Services/Places/MapKitPlacesService.h"

#include "Core/Support/AppError.h"
#include "Models/PlaceCandidate.h"
#include "Platform/Clock/FakeClock.h"
#include "Platform/Errors/Outcome.h"
#include "Platform/Geodesy/DistanceMeters.h"
#include "Platform/Http/QtHttpClient.h"
#include "Platform/PointsOfInterest/FakePointsOfInterestSearch.h"
#include "Platform/PointsOfInterest/OverpassPointsOfInterest.h"
#include "Platform/PointsOfInterest/PointOfInterest.h"
#include "Services/Places/FakePlacesService.h"
#include "Tests/Support/RunTask.h"
#include "Tests/Support/Services/ScriptedHttpServer.h"

#include <cmath>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

namespace {

const Coordinate here{.latitude = 10.7769, .longitude = 106.7009};
constexpr double radiusMeters = 100;

} // namespace

class MapKitPlacesServiceTest final : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_map = std::make_unique<FakePointsOfInterestSearch>(); }

    void cafesAreTheOnlyCategory()
    {
        QCOMPARE(MapKitPlacesService::defaultCategories.size(), 1U);
        m_map->calls.willSucceed({});
        QVERIFY(nearbyCafes().empty());
        const PointsOfInterestRequest expected{
            .center = here, .radiusMeters = 100, .categories = {PointOfInterestCategory::Cafe}};
        QVERIFY(m_map->calls.requests == std::vector{expected});
    }

    void anItemIsMappedFieldByField()
    {
        const Coordinate at{.latitude = 10.7773, .longitude = 106.7};
        m_map->calls.willSucceed({{.identifier = u"node/42"_s,
                                   .name = u"Cà phê Cửa Xanh"_s,
                                   .coordinate = at,
                                   .category = u"MKPOICategoryCafe"_s,
                                   .address = u"7 Side Lane, Old Town"_s}});
        const PlaceCandidate expected{.id = u"node/42"_s,
                                      .name = u"Cà phê Cửa Xanh"_s,
                                      .latitude = 10.7773,
                                      .longitude = 106.7,
                                      .distanceMeters = distanceMeters(here, at),
                                      .category = u"Cafe"_s,
                                      .address = u"7 Side Lane, Old Town"_s,
                                      .mapItemIdentifier = u"node/42"_s};
        QVERIFY(nearbyCafes() == std::vector{expected});
        QVERIFY(std::abs(expected.distanceMeters - 107.9) < 0.5);
    }

    void whatAnItemLacksIsMadeUpOrAbsent()
    {
        m_map->calls.willSucceed({{.coordinate = here}});
        const PlaceCandidate expected{.id = u"Unnamed@10.7769,106.7009"_s,
                                      .name = u"Unnamed"_s,
                                      .latitude = 10.7769,
                                      .longitude = 106.7009,
                                      .distanceMeters = 0,
                                      .category = u"?"_s,
                                      .address = std::nullopt,
                                      .mapItemIdentifier = std::nullopt};
        QVERIFY(nearbyCafes() == std::vector{expected});
    }

    void withoutAnIdentifierNameAndPlaceMakeTheId_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<double>("latitude");
        QTest::addColumn<double>("longitude");
        QTest::addColumn<QString>("id");
        QTest::newRow("plain") << u"Blue Door"_s << 10.7769 << 106.7009
                               << u"Blue Door@10.7769,106.7009"_s;
        QTest::newRow("south and west")
            << u"Blue Door"_s << -33.8688 << -70.25 << u"Blue Door@-33.8688,-70.25"_s;
        QTest::newRow("whole degrees") << u"Zero"_s << 0.0 << -180.0 << u"Zero@0.0,-180.0"_s;
        QTest::newRow("all digits")
            << u"B@r, no. 1"_s << 0.1 + 0.2 << 1e-7 << u"B@r, no. 1@0.30000000000000004,1e-07"_s;
        QTest::newRow("placeholders") << u"%1 %2"_s << 1.5 << 2.5 << u"%1 %2@1.5,2.5"_s;
    }

    void withoutAnIdentifierNameAndPlaceMakeTheId()
    {
        QFETCH(const QString, name);
        QFETCH(const double, latitude);
        QFETCH(const double, longitude);
        m_map->calls.willSucceed(
            {{.name = name, .coordinate = {.latitude = latitude, .longitude = longitude}}});
        const auto candidates = nearbyCafes();
        QTEST(candidates.front().id, "id");
        QVERIFY(!candidates.front().mapItemIdentifier);
    }

    void theCategoryLosesEveryPrefix_data()
    {
        QTest::addColumn<QString>("raw");
        QTest::addColumn<QString>("category");
        QTest::newRow("café") << u"MKPOICategoryCafe"_s << u"Cafe"_s;
        QTest::newRow("another") << u"MKPOICategoryBakery"_s << u"Bakery"_s;
        QTest::newRow("no prefix") << u"Cafe"_s << u"Cafe"_s;
        QTest::newRow("twice") << u"MKPOICategoryCafeMKPOICategory"_s << u"Cafe"_s;
        QTest::newRow("nothing but") << u"MKPOICategory"_s << QString();
        QTest::newRow("other case") << u"mkpoicategoryCafe"_s << u"mkpoicategoryCafe"_s;
    }

    void theCategoryLosesEveryPrefix()
    {
        QFETCH(const QString, raw);
        m_map->calls.willSucceed({{.coordinate = here, .category = raw}});
        QTEST(nearbyCafes().front().category, "category");
    }

    void everyItemIsACandidateInTheOrderOfTheSearch()
    {
        const Coordinate far{.latitude = 11, .longitude = 107};
        m_map->calls.willSucceed({{.identifier = u"way/3"_s, .coordinate = far},
                                  {.identifier = u"node/1"_s, .coordinate = here},
                                  {.identifier = u"node/1"_s, .coordinate = here}});
        QStringList ids;
        for (const PlaceCandidate &candidate : nearbyCafes())
            ids.append(candidate.id);
        QCOMPARE(ids, QStringList({u"way/3"_s, u"node/1"_s, u"node/1"_s}));
    }

    void failuresCarryTheMapsOwnSentence()
    {
        using Case = PointsOfInterestError::Case;
        m_map->calls.willFail(PointsOfInterestError(Case::Busy));
        MapKitPlacesService service(*m_map);
        QVERIFY(errorOfTask<AppError>(service.nearbyCafes(here, radiusMeters)) ==
                AppError::network(u"The map service is busy. Try again in a while."_s));
    }

    void aCallOutlivesItsService()
    {
        m_map->calls.willHold();
        auto cafes = MapKitPlacesService(*m_map).nearbyCafes(here, radiusMeters);
        m_map->calls.release(
            Outcome<std::vector<PointOfInterest>>::success({{.coordinate = here}}));
        QCOMPARE(runTask(std::move(cafes)).size(), 1U);
    }

    void aMapThatGoesAwayEndsTheCall()
    {
        m_map->calls.willHold();
        auto cafes = MapKitPlacesService(*m_map).nearbyCafes(here, radiusMeters);
        m_map.reset();
        QVERIFY(errorOfTask<AppError>(std::move(cafes)) ==
                AppError::network(u"The search was cancelled."_s));
    }

    void aRealServerIsAskedOverARealConnection()
    {
        ScriptedHttpServer server(ScriptedHttpServer::whole(200, R"({"elements": [
            {"type": "node", "id": 8, "lat": 10.7769, "lon": 106.7009,
             "tags": {"amenity": "cafe", "name": "Lamp"}}]})"));
        QtHttpClient client;
        OverpassPointsOfInterest map(client, Clock::system(), {server.url()});
        const auto cafes = runTask(MapKitPlacesService(map).nearbyCafes(here, radiusMeters));
        QCOMPARE(cafes.size(), 1U);
        QCOMPARE(cafes.front().id, u"node/8"_s);
        QCOMPARE(cafes.front().category, u"Cafe"_s);
        QCOMPARE(cafes.front().distanceMeters, 0.0);
    }

    void theFakeServiceAnswersAsItsScriptSays()
    {
        FakePlacesService service;
        service.calls.willSucceed({{.id = u"a"_s}});
        service.calls.willFail(AppError::network(u"No way."_s));
        QCOMPARE(runTask(service.nearbyCafes(here, 50)).front().id, u"a"_s);
        QVERIFY(errorOfTask<AppError>(service.nearbyCafes(here, 60)) ==
                AppError::network(u"No way."_s));
        QVERIFY(service.calls.requests ==
                (std::vector<FakePlacesService::Request>{{here, 50}, {here, 60}}));
    }

private:
    [[nodiscard]] std::vector<PlaceCandidate> nearbyCafes() const
    {
        return runTask(MapKitPlacesService(*m_map).nearbyCafes(here, radiusMeters));
    }

    std::unique_ptr<FakePointsOfInterestSearch> m_map;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::MapKitPlacesServiceTest)
#include "MapKitPlacesServiceTest.moc"
