#include "Core/DesignSystem/Glyphs/WeatherCondition.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace quorvel::tests {
namespace {

using enum WeatherTint;

struct Range
{
    int first;
    int last;
    const char *byDay;
    const char *byNight;
    const char *label;
    WeatherTint tint;
};

/// Every code with a meaning, and the codes between them without one.
const Range ranges[] = {
    {-3, -1, "sun.max", "moon", "Clear", Sun},
    {0, 0, "sun.max", "moon.stars.fill", "Clear", Sun},
    {1, 1, "sun.max", "moon.stars.fill", "Mostly clear", Sun},
    {2, 2, "cloud.sun", "cloud.moon", "Partly cloudy", Sun},
    {3, 3, "cloud", "cloud", "Overcast", Cloud},
    {4, 44, "sun.max", "moon", "Clear", Sun},
    {45, 45, "cloud.fog", "cloud.fog", "Foggy", Cloud},
    {46, 47, "sun.max", "moon", "Clear", Sun},
    {48, 48, "cloud.fog", "cloud.fog", "Foggy", Cloud},
    {49, 50, "sun.max", "moon", "Clear", Sun},
    {51, 60, "cloud.drizzle", "cloud.drizzle", "Drizzle", Rain},
    {61, 67, "cloud.rain", "cloud.rain", "Rain", Rain},
    {68, 70, "sun.max", "moon", "Clear", Sun},
    {71, 77, "snowflake", "snowflake", "Snow", Cloud},
    {78, 79, "sun.max", "moon", "Clear", Sun},
    {80, 82, "cloud.rain", "cloud.rain", "Showers", Rain},
    {83, 84, "sun.max", "moon", "Clear", Sun},
    {85, 86, "cloud.snow", "cloud.snow", "Snow showers", Rain},
    {87, 94, "sun.max", "moon", "Clear", Sun},
    {95, 99, "cloud.bolt.rain", "cloud.bolt.rain", "Thunderstorm", Rain},
    {100, 130, "sun.max", "moon", "Clear", Sun},
};

} // namespace

class WeatherConditionTest final : public QObject
{
    Q_OBJECT

private slots:
    static void everyCodeHasItsCondition_data()
    {
        QTest::addColumn<qsizetype>("index");
        for (qsizetype i = 0; i < std::ssize(ranges); ++i)
            QTest::addRow("%d to %d", ranges[i].first, ranges[i].last) << i;
    }

    static void everyCodeHasItsCondition()
    {
        QFETCH(qsizetype, index);
        const Range &range = ranges[index];
        for (int code = range.first; code <= range.last; ++code) {
            for (const bool isDay : {true, false}) {
                const WeatherCondition expected{
                    QString::fromLatin1(isDay ? range.byDay : range.byNight),
                    QString::fromLatin1(range.label), range.tint};
                QVERIFY(WeatherCondition::config(code, isDay) == expected);
            }
        }
    }

    static void everyCodeIsInTheTable()
    {
        for (size_t i = 1; i < std::size(ranges); ++i)
            QCOMPARE(ranges[i].first, ranges[i - 1].last + 1);
    }
};

} // namespace quorvel::tests

QTEST_MAIN(quorvel::tests::WeatherConditionTest)
#include "WeatherConditionTest.moc"
