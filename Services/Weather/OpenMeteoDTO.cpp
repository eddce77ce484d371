#include "Services/Weather/OpenMeteoDTO.h"

#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>

#include <algorithm>
#include <cmath>

namespace quorvel {

using namespace Qt::StringLiterals;

namespace {

/// Capitalises the first letter, which need not be the first character: "10m" becomes "10M".
QString capitalized(const QString &word)
{
    QString result = word.toLower();
    const auto isLetter = [](QChar character) { return character.isLetter(); };
    const auto letter = std::find_if(result.begin(), result.end(), isLetter);
    if (letter != result.end())
        *letter = letter->toUpper();
    return result;
}

/// Turns a snake_case key into our camelCase. A key of one word stays as it is, and so does a key
/// with a leading or trailing underscore, which no member of ours has.
QString memberName(const QString &key)
{
    const QStringList words = key.split(u'_', Qt::SkipEmptyParts);
    if (words.size() < 2 || key.startsWith(u'_') || key.endsWith(u'_'))
        return key;
    QString name = words.first().toLower();
    for (const QString &word : words.sliced(1))
        name += capitalized(word);
    return name;
}

/// Reads one object of the body by the names of our members.
class Members final
{
public:
    explicit Members(const QJsonObject &object)
    {
        for (auto entry = object.begin(); entry != object.end(); ++entry)
            m_values.insert(memberName(entry.key()), entry.value());
    }

    [[nodiscard]] QJsonObject object(const QString &name) const
    {
        const QJsonValue value = required(name);
        if (!value.isObject())
            throw wrongType(name, u"an object"_s);
        return value.toObject();
    }

    [[nodiscard]] double number(const QString &name) const
    {
        const QJsonValue value = required(name);
        if (!value.isDouble() || !std::isfinite(value.toDouble()))
            throw wrongType(name, u"a number"_s);
        return value.toDouble();
    }

    [[nodiscard]] qint64 integer(const QString &name) const
    {
        const QJsonValue value = required(name);
        // A value that is no integer gives the default. Two different defaults expose it.
        if (value.toInteger(0) != value.toInteger(1))
            throw wrongType(name, u"a whole number"_s);
        return value.toInteger();
    }

private:
    [[nodiscard]] QJsonValue required(const QString &name) const
    {
        const auto value = m_values.find(name);
        if (value == m_values.end())
            throw OpenMeteoDecodingError(u"The forecast lacks “%1”."_s.arg(name));
        return *value;
    }

    [[nodiscard]] static OpenMeteoDecodingError wrongType(const QString &name, const QString &type)
    {
        return OpenMeteoDecodingError(u"“%1” in the forecast is not %2."_s.arg(name, type));
    }

    QHash<QString, QJsonValue> m_values;
};

OpenMeteoCurrentWeather currentWeather(const Members &current)
{
    OpenMeteoCurrentWeather weather;
    weather.temperature2M = current.number(u"temperature2M"_s);
    weather.apparentTemperature = current.number(u"apparentTemperature"_s);
    weather.weatherCode = current.integer(u"weatherCode"_s);
    weather.isDay = current.integer(u"isDay"_s);
    weather.windSpeed10M = current.number(u"windSpeed10M"_s);
    return weather;
}

} // namespace

OpenMeteoForecastResponse OpenMeteoDTO::decode(const QByteArray &body)
{
    const QJsonDocument document = QJsonDocument::fromJson(body);
    if (document.isNull())
        throw OpenMeteoDecodingError(u"The forecast is not valid JSON."_s);
    if (!document.isObject())
        throw OpenMeteoDecodingError(u"The forecast is not an object."_s);
    const Members forecast(document.object());
    return {.current = currentWeather(Members(forecast.object(u"current"_s)))};
}

} // namespace quorvel
