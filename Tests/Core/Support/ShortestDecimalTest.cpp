#include "Core/Support/Texts/ShortestDecimal.h"

#include "Tests/Support/SeededRandom.h"

#include <QTest>

#include <limits>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

class ShortestDecimalTest final : public QObject
{
    Q_OBJECT

private slots:
    void numbersAreWrittenWithTheFewestDigits_data()
    {
        QTest::addColumn<double>("number");
        QTest::addColumn<QString>("text");
        QTest::newRow("latitude") << 10.7769 << u"10.7769"_s;
        QTest::newRow("negative") << -33.8688 << u"-33.8688"_s;
        QTest::newRow("whole") << 106.0 << u"106.0"_s;
        QTest::newRow("hundred") << 100.0 << u"100.0"_s;
        QTest::newRow("negative whole") << -180.0 << u"-180.0"_s;
        QTest::newRow("zero") << 0.0 << u"0.0"_s;
        QTest::newRow("negative zero") << -0.0 << u"-0.0"_s;
        QTest::newRow("sum of tenths") << 0.1 + 0.2 << u"0.30000000000000004"_s;
        QTest::newRow("a third") << 1.0 / 3 << u"0.3333333333333333"_s;
        QTest::newRow("least plain") << 0.0001 << u"0.0001"_s;
        QTest::newRow("just below") << 0.000099 << u"9.9e-05"_s;
        QTest::newRow("ten-millionth") << 1e-7 << u"1e-07"_s;
        QTest::newRow("largest plain") << 9999999999999998.0 << u"9999999999999998.0"_s;
        QTest::newRow("just beyond") << 1e16 << u"1e+16"_s;
        QTest::newRow("largest") << std::numeric_limits<double>::max()
                                 << u"1.7976931348623157e+308"_s;
        QTest::newRow("least") << -std::numeric_limits<double>::denorm_min() << u"-5e-324"_s;
        QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << u"nan"_s;
        QTest::newRow("infinite") << -std::numeric_limits<double>::infinity() << u"-inf"_s;
    }

    void numbersAreWrittenWithTheFewestDigits()
    {
        QFETCH(const double, number);
        QTEST(shortestDecimal(number), "text");
    }

    void everyCoordinateReadsBackAsItself()
    {
        auto random = seededRandom();
        for (int i = 0; i < 10000; ++i) {
            const double number = random.bounded(360.0) - 180.0;
            QCOMPARE(shortestDecimal(number).toDouble(), number);
        }
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::ShortestDecimalTest)
#include "ShortestDecimalTest.moc"
