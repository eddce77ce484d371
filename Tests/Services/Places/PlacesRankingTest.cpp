#include "Services/Places/PlacesRanking.h"

#include "Tests/Support/SeededRandom.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

namespace {

constexpr double radiusMeters = 100;

PlaceCandidate candidate(const QString &id, double distanceMeters)
{
    return {.id = id, .name = u"Café"_s, .distanceMeters = distanceMeters, .category = u"Cafe"_s};
}

QString idsOf(const std::vector<PlaceCandidate> &candidates)
{
    QString ids;
    for (const PlaceCandidate &each : candidates)
        ids += each.id;
    return ids;
}

} // namespace

class PlacesRankingTest final : public QObject
{
    Q_OBJECT

private slots:
    void theRadiusIsInclusive_data()
    {
        QTest::addColumn<double>("distance");
        QTest::addColumn<bool>("isKept");
        QTest::newRow("here") << 0.0 << true;
        QTest::newRow("100") << 100.0 << true;
        QTest::newRow("next after 100") << std::nextafter(100.0, 101.0) << false;
        QTest::newRow("100.01") << 100.01 << false;
        QTest::newRow("infinitely far") << std::numeric_limits<double>::infinity() << false;
        QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << false;
    }

    void theRadiusIsInclusive()
    {
        QFETCH(const double, distance);
        QFETCH(const bool, isKept);
        const auto kept =
            PlacesRanking::sortedWithinRadius({candidate(u"a"_s, distance)}, radiusMeters);
        QCOMPARE(kept.size(), isKept ? 1U : 0U);
    }

    void theNearestComesFirst()
    {
        const auto sorted =
            PlacesRanking::sortedWithinRadius({candidate(u"c"_s, 99.5), candidate(u"x"_s, 100.5),
                                               candidate(u"a"_s, 0), candidate(u"b"_s, 50)},
                                              radiusMeters);
        QCOMPARE(idsOf(sorted), u"abc"_s);
    }

    void equalDistancesKeepTheOrderOfTheSearch()
    {
        const auto sorted = PlacesRanking::sortedWithinRadius(
            {candidate(u"c"_s, 20), candidate(u"a"_s, 10), candidate(u"d"_s, 20),
             candidate(u"b"_s, 10), candidate(u"e"_s, 20)},
            radiusMeters);
        QCOMPARE(idsOf(sorted), u"abcde"_s);
    }

    void nothingIsCountedNamedOrMerged()
    {
        const std::vector<PlaceCandidate> same(500, candidate(u"a"_s, 10));
        QVERIFY(PlacesRanking::sortedWithinRadius(same, radiusMeters) == same);
    }

    void everyFieldStaysWithItsCandidate()
    {
        PlaceCandidate near = candidate(u"near"_s, 1);
        near.address = u"1 Near Street"_s;
        PlaceCandidate far = candidate(u"far"_s, 2);
        far.mapItemIdentifier = u"node/2"_s;
        QVERIFY(PlacesRanking::sortedWithinRadius({far, near}, radiusMeters) ==
                (std::vector{near, far}));
    }

    void nothingStaysNothing()
    {
        QVERIFY(PlacesRanking::sortedWithinRadius({}, radiusMeters).empty());
        QVERIFY(PlacesRanking::sortedWithinRadius({candidate(u"a"_s, 0)},
                                                  std::numeric_limits<double>::quiet_NaN())
                    .empty());
    }

    void manyAreInOrderAndStable()
    {
        auto random = seededRandom();
        std::vector<PlaceCandidate> candidates;
        for (int i = 0; i < 10000; ++i)
            candidates.push_back(candidate(QString::number(i), random.bounded(150)));
        const auto sorted = PlacesRanking::sortedWithinRadius(candidates, radiusMeters);
        const auto isInPlace = [](const PlaceCandidate &left, const PlaceCandidate &right) {
            return left.distanceMeters < right.distanceMeters ||
                   (left.distanceMeters == right.distanceMeters &&
                    left.id.toInt() < right.id.toInt());
        };
        for (std::size_t i = 1; i < sorted.size(); ++i)
            QVERIFY(isInPlace(sorted[i - 1], sorted[i]));
        const auto kept =
            std::count_if(candidates.begin(), candidates.end(), [](const PlaceCandidate &each) {
                return each.distanceMeters <= radiusMeters;
            });
        QCOMPARE(qsizetype(sorted.size()), qsizetype(kept));
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::PlacesRankingTest)
#include "PlacesRankingTest.moc"
