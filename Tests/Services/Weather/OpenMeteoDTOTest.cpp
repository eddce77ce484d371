#include "Services/Weather/OpenMeteoDTO.h"

#include <QTest>

#include <limits>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

namespace {

/// A whole forecast with these members of "current".
QByteArray forecast(const QByteArray &current)
{
    return R"({"latitude": 48.25, "longitude": 16.5, "elevation": 171.0, "timezone": "GMT",
               "current_units": {"temperature_2m": "°C", "weather_code": "wmo code"},
               "current": {"time": "2026-05-02T09:15", "interval": 900, )" +
           current + "}}";
}

QString errorOf(const QByteArray &body)
{
    try {
        static_cast<void>(OpenMeteoDTO::decode(body));
    } catch (const OpenMeteoDecodingError &error) {
        return error.errorDescription();
    }
    return {};
}

constexpr auto complete = R"("temperature_2m": 18.5, "apparent_temperature": -0.25,
                             "weather_code": 61, "is_day": 1, "wind_speed_10m": 12)";

/// All members, with one of them replaced.
QByteArray with(const QByteArray &member, const QByteArray &value)
{
    QByteArray text(complete);
    const qsizetype begin = text.indexOf("\"" + member + "\"");
    const qsizetype end = text.indexOf(',', begin);
    return text.replace(begin, (end < 0 ? text.size() : end) - begin,
                        "\"" + member + "\": " + value);
}

} // namespace

class OpenMeteoDTOTest final : public QObject
{
    Q_OBJECT

private slots:
    void everyMemberIsReadFromItsKey()
    {
        const OpenMeteoForecastResponse expected{.current = {.temperature2M = 18.5,
                                                             .apparentTemperature = -0.25,
                                                             .weatherCode = 61,
                                                             .isDay = 1,
                                                             .windSpeed10M = 12}};
        QVERIFY(OpenMeteoDTO::decode(forecast(complete)) == expected);
    }

    void otherSpellingsOfAKeyNameTheSameMember_data()
    {
        QTest::addColumn<QByteArray>("key");
        QTest::newRow("our own") << QByteArray("temperature2M");
        QTest::newRow("more underscores") << QByteArray("temperature__2m");
        QTest::newRow("capitals") << QByteArray("Temperature_2M");
    }

    void otherSpellingsOfAKeyNameTheSameMember()
    {
        QFETCH(const QByteArray, key);
        const QByteArray body = forecast(QByteArray(complete).replace("temperature_2m", key));
        QCOMPARE(OpenMeteoDTO::decode(body).current.temperature2M, 18.5);
    }

    void aKeyThatAnUnderscoreEnclosesNamesNoMember_data()
    {
        QTest::addColumn<QByteArray>("key");
        QTest::newRow("in front") << QByteArray("_temperature_2m");
        QTest::newRow("behind") << QByteArray("temperature_2m_");
        QTest::newRow("around our own") << QByteArray("_temperature2M_");
    }

    void aKeyThatAnUnderscoreEnclosesNamesNoMember()
    {
        QFETCH(const QByteArray, key);
        QCOMPARE(errorOf(forecast(QByteArray(complete).replace("temperature_2m", key))),
                 u"The forecast lacks “temperature2M”."_s);
    }

    void everyMemberIsRequired_data()
    {
        QTest::addColumn<QByteArray>("key");
        QTest::addColumn<QString>("sentence");
        QTest::newRow("temperature")
            << QByteArray("temperature_2m") << u"The forecast lacks “temperature2M”."_s;
        QTest::newRow("apparent") << QByteArray("apparent_temperature")
                                  << u"The forecast lacks “apparentTemperature”."_s;
        QTest::newRow("code") << QByteArray("weather_code")
                              << u"The forecast lacks “weatherCode”."_s;
        QTest::newRow("day") << QByteArray("is_day") << u"The forecast lacks “isDay”."_s;
        QTest::newRow("wind") << QByteArray("wind_speed_10m")
                              << u"The forecast lacks “windSpeed10M”."_s;
        QTest::newRow("current") << QByteArray("current\":") << u"The forecast lacks “current”."_s;
    }

    void everyMemberIsRequired()
    {
        QFETCH(const QByteArray, key);
        const QByteArray other = key.endsWith(':') ? "currently\":" : "another_key";
        QTEST(errorOf(forecast(complete).replace(key, other)), "sentence");
    }

    void wholeNumbersMayBeWrittenWithAFraction_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<qint64>("code");
        QTest::newRow("3") << QByteArray("3") << qint64(3);
        QTest::newRow("3.0") << QByteArray("3.0") << qint64(3);
        QTest::newRow("3e0") << QByteArray("3e0") << qint64(3);
        QTest::newRow("30e-1") << QByteArray("30e-1") << qint64(3);
        QTest::newRow("0") << QByteArray("0") << qint64(0);
        QTest::newRow("1") << QByteArray("1") << qint64(1);
        QTest::newRow("-0") << QByteArray("-0") << qint64(0);
        QTest::newRow("-7") << QByteArray("-7") << qint64(-7);
        QTest::newRow("largest") << QByteArray("9223372036854775807")
                                 << std::numeric_limits<qint64>::max();
        QTest::newRow("least") << QByteArray("-9223372036854775808")
                               << std::numeric_limits<qint64>::min();
    }

    void wholeNumbersMayBeWrittenWithAFraction()
    {
        QFETCH(const QByteArray, text);
        const auto decoded = OpenMeteoDTO::decode(forecast(with("weather_code", text)));
        QTEST(decoded.current.weatherCode, "code");
    }

    void integersThatAreNoneFail_data()
    {
        QTest::addColumn<QByteArray>("text");
        for (const char *text : {"3.5", "-0.5", "1e300", "9223372036854775808", "\"3\"", "true",
                                 "null", "[3]", "{}", "\"\""})
            QTest::newRow(text) << QByteArray(text);
    }

    void integersThatAreNoneFail()
    {
        QFETCH(const QByteArray, text);
        QCOMPARE(errorOf(forecast(with("weather_code", text))),
                 u"“weatherCode” in the forecast is not a whole number."_s);
        QCOMPARE(errorOf(forecast(with("is_day", text))),
                 u"“isDay” in the forecast is not a whole number."_s);
    }

    void numbersMayBeWhole()
    {
        const auto decoded = OpenMeteoDTO::decode(forecast(with("temperature_2m", "-40")));
        QCOMPARE(decoded.current.temperature2M, -40.0);
    }

    void numbersThatAreNoneFail_data()
    {
        QTest::addColumn<QByteArray>("text");
        for (const char *text : {"\"18.5\"", "\"NaN\"", "true", "false", "null", "[18.5]", "{}"})
            QTest::newRow(text) << QByteArray(text);
    }

    void numbersThatAreNoneFail()
    {
        QFETCH(const QByteArray, text);
        QCOMPARE(errorOf(forecast(with("temperature_2m", text))),
                 u"“temperature2M” in the forecast is not a number."_s);
        QCOMPARE(errorOf(forecast(with("apparent_temperature", text))),
                 u"“apparentTemperature” in the forecast is not a number."_s);
        QCOMPARE(errorOf(forecast(with("wind_speed_10m", text))),
                 u"“windSpeed10M” in the forecast is not a number."_s);
    }

    void bodiesThatAreNoForecastFail_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QString>("sentence");
        const QString notJson = u"The forecast is not valid JSON."_s;
        QTest::newRow("empty") << QByteArray() << notJson;
        QTest::newRow("page") << QByteArray("<html><body>Bad gateway</body></html>") << notJson;
        QTest::newRow("truncated") << forecast(complete).chopped(1) << notJson;
        QTest::newRow("more behind") << forecast(complete) + "{}" << notJson;
        QTest::newRow("NaN") << forecast(with("temperature_2m", "NaN")) << notJson;
        QTest::newRow("not UTF-8") << forecast("\"name\": \"\xff\xfe\"") << notJson;
        QTest::newRow("deep") << QByteArray(100000, '[') << notJson;
        QTest::newRow("deep inside") << forecast("\"a\": " + QByteArray(100000, '[')) << notJson;
        QTest::newRow("list") << "[" + forecast(complete) + "]"
                              << u"The forecast is not an object."_s;
        QTest::newRow("number") << QByteArray("3") << notJson;
        QTest::newRow("number beyond all") << forecast(with("temperature_2m", "1e400")) << notJson;
        QTest::newRow("nothing inside") << QByteArray("{}") << u"The forecast lacks “current”."_s;
        QTest::newRow("refusal") << QByteArray(R"({"error": true, "reason": "Out of range."})")
                                 << u"The forecast lacks “current”."_s;
        for (const char *current : {"null", "[]", "3", "\"now\"", "true"})
            QTest::addRow("current is %s", current)
                << "{\"current\": " + QByteArray(current) + "}"
                << u"“current” in the forecast is not an object."_s;
    }

    void bodiesThatAreNoForecastFail()
    {
        QFETCH(const QByteArray, body);
        QTEST(errorOf(body), "sentence");
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::OpenMeteoDTOTest)
#include "OpenMeteoDTOTest.moc"
