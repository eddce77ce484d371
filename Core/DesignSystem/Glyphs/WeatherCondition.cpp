#include "Core/DesignSystem/Glyphs/WeatherCondition.h"

#include <QList>

using namespace Qt::StringLiterals;

namespace quorvel {
namespace {

struct Row
{
    int first;
    int last;
    QString byDay;
    QString byNight;
    QString label;
    WeatherTint tint;
};

const QList<Row> &rows()
{
    using enum WeatherTint;
    // Deliberate: snow showers have the colour of rain, plain snow has the colour of clouds.
    static const QList<Row> all{
        {0, 0, u"sun.max"_s, u"moon.stars.fill"_s, u"Clear"_s, Sun},
        {1, 1, u"sun.max"_s, u"moon.stars.fill"_s, u"Mostly clear"_s, Sun},
        {2, 2, u"cloud.sun"_s, u"cloud.moon"_s, u"Partly cloudy"_s, Sun},
        {3, 3, u"cloud"_s, u"cloud"_s, u"Overcast"_s, Cloud},
        {45, 45, u"cloud.fog"_s, u"cloud.fog"_s, u"Foggy"_s, Cloud},
        {48, 48, u"cloud.fog"_s, u"cloud.fog"_s, u"Foggy"_s, Cloud},
        {51, 60, u"cloud.drizzle"_s, u"cloud.drizzle"_s, u"Drizzle"_s, Rain},
        {61, 67, u"cloud.rain"_s, u"cloud.rain"_s, u"Rain"_s, Rain},
        {71, 77, u"snowflake"_s, u"snowflake"_s, u"Snow"_s, Cloud},
        {80, 82, u"cloud.rain"_s, u"cloud.rain"_s, u"Showers"_s, Rain},
        {85, 86, u"cloud.snow"_s, u"cloud.snow"_s, u"Snow showers"_s, Rain},
        {95, 99, u"cloud.bolt.rain"_s, u"cloud.bolt.rain"_s, u"Thunderstorm"_s, Rain},
    };
    return all;
}

} // namespace

WeatherCondition WeatherCondition::config(int code, bool isDay)
{
    for (const Row &row : rows()) {
        if (code >= row.first && code <= row.last)
            return {isDay ? row.byDay : row.byNight, row.label, row.tint};
    }
    // Deliberate: at night an unknown code shows a plain moon; a clear sky shows stars too.
    return {isDay ? u"sun.max"_s : u"moon"_s, u"Clear"_s, WeatherTint::Sun};
}

} // namespace quorvel
