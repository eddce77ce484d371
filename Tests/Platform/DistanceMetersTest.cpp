#include "Platform/Geodesy/DistanceMeters.h"

#include <QTest>

#include <cmath>
#include <limits>

namespace quorvel::tests {

class DistanceMetersTest final : public QObject
{
    Q_OBJECT

private slots:
    // A degree along the equator is a 360th of its length, 2 pi 6,378,137 m; half a meridian
    // measures 20,003,931.4586 m.
    void distancesAreThoseOnTheEllipsoid_data()
    {
        QTest::addColumn<double>("latitude1");
        QTest::addColumn<double>("longitude1");
        QTest::addColumn<double>("latitude2");
        QTest::addColumn<double>("longitude2");
        QTest::addColumn<double>("meters");
        QTest::newRow("a degree of the equator") << 0.0 << 0.0 << 0.0 << 1.0 << 111319.490793;
        QTest::newRow("a quarter of a meridian") << 0.0 << 0.0 << 90.0 << 0.0 << 10001965.729313;
        QTest::newRow("pole to pole") << -90.0 << 0.0 << 90.0 << 0.0 << 20003931.458625;
        QTest::newRow("across the antimeridian") << 0.0 << 179.5 << 0.0 << -179.5 << 111319.490793;
        QTest::newRow("the same point") << 10.7769 << 106.7009 << 10.7769 << 106.7009 << 0.0;
    }

    void distancesAreThoseOnTheEllipsoid()
    {
        QFETCH(const double, latitude1);
        QFETCH(const double, longitude1);
        QFETCH(const double, latitude2);
        QFETCH(const double, longitude2);
        QFETCH(const double, meters);
        const Coordinate a{.latitude = latitude1, .longitude = longitude1};
        const Coordinate b{.latitude = latitude2, .longitude = longitude2};
        QVERIFY(std::abs(distanceMeters(a, b) - meters) < 0.00001);
        QVERIFY(std::abs(distanceMeters(b, a) - meters) < 0.00001);
    }

    void aHundredMetresAreToldFromACentimetreMore()
    {
        // The equator is a circle with this radius of curvature.
        const double degreesPerMeter = 180.0 / (std::acos(-1.0) * 6378137.0);
        const auto atMeters = [=](double meters) {
            return distanceMeters({}, {.latitude = 0, .longitude = meters * degreesPerMeter});
        };
        QVERIFY(std::abs(atMeters(100.0) - 100.0) < 0.000001);
        QVERIFY(std::abs(atMeters(100.01) - 100.01) < 0.000001);
    }

    void coordinatesThatAreNoneHaveNoDistance()
    {
        const double nan = std::numeric_limits<double>::quiet_NaN();
        QVERIFY(std::isnan(distanceMeters({.latitude = nan, .longitude = 0}, {})));
        QVERIFY(std::isnan(distanceMeters({}, {.latitude = 0, .longitude = nan})));
        QVERIFY(std::isnan(distanceMeters({}, {.latitude = 90.01, .longitude = 0})));
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::DistanceMetersTest)
#include "DistanceMetersTest.moc"
