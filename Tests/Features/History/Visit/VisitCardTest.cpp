#include "Features/History/Card/VisitCard.h"

#include "Models/Cafe.h"
#include "Models/WeatherSnapshot.h"
#include "Tests/Features/History/Visits.h"

#include <QTest>
#include <QTimeZone>
#include <QUuid>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

VisitCard cardOf(const CheckIn &checkIn, const QByteArray &zone = "UTC",
                 const QLocale &locale = QLocale::c())
{
    return VisitCard::of(checkIn, Calendar(QTimeZone(zone)), locale);
}

} // namespace

class VisitCardTest final : public QObject
{
    Q_OBJECT

private slots:
    void aVisitIsInItsCafe()
    {
        const auto place = std::make_shared<Cafe>(QUuid::createUuid(), u"Blue <b>Door</b>"_s,
                                                  -33.8568, 151.2153, u"Blue;Net"_s, std::nullopt);
        const auto there = visit(u"2025-03-03T14:05:59Z"_s, place);
        there->setAddress(u"12 Tôn Đức Thắng"_s);
        there->setNote(u"Quiet.\nVery."_s);
        const VisitCard card = cardOf(*there);
        QCOMPARE(card.title, u"Blue <b>Door</b>"_s);
        QCOMPARE(card.moment, u"Mon, Mar 3 · 14:05"_s);
        QCOMPARE(card.address, u"12 Tôn Đức Thắng"_s);
        QCOMPARE(card.coordinates, u"33.8568°S, 151.2153°E"_s);
        QCOMPARE(card.note, u"Quiet.\nVery."_s);
        QCOMPARE(card.ssid, u"Blue;Net"_s);
        QCOMPARE(card.codeName, u"QR code of Blue;Net"_s);
    }

    void whatAVisitDoesNotHaveIsEmpty()
    {
        const VisitCard card = cardOf(*visit(u"2025-03-03T14:05:00Z"_s));
        QCOMPARE(card.title, u"Unknown café"_s);
        QCOMPARE(card.moment, u"Mon, Mar 3 · 14:05"_s);
        for (const QString &text :
             {card.address, card.coordinates, card.temperature, card.note, card.ssid})
            QCOMPARE(text, QString());
        QVERIFY(!card.hasWeather);
    }

    void theAddressIsTheVisitsAndNotTheCafes()
    {
        const auto there = visit(u"2025-03-03T14:05:00Z"_s);
        there->setAddress(u"12 Tôn Đức Thắng"_s);
        QCOMPARE(cardOf(*there).address, u"12 Tôn Đức Thắng"_s);
    }

    void theMomentIsTheUsers()
    {
        const auto late = visit(u"2025-03-03T17:05:00Z"_s);
        QCOMPARE(cardOf(*late, "Asia/Ho_Chi_Minh").moment, u"Tue, Mar 4 · 00:05"_s);
        QCOMPARE(cardOf(*late, "UTC", QLocale(u"vi_VN"_s)).moment, u"Th 2, thg 3 3 · 17:05"_s);
    }

    void theTemperatureIsRoundedToTheNearest_data()
    {
        QTest::addColumn<double>("celsius");
        QTest::addColumn<QString>("text");
        QTest::newRow("a half") << 21.5 << u"22°"_s;
        QTest::newRow("below a half") << 21.49 << u"21°"_s;
        QTest::newRow("a half below zero") << -0.5 << u"-1°"_s;
        QTest::newRow("just below zero") << -0.4 << u"0°"_s;
    }

    void theTemperatureIsRoundedToTheNearest()
    {
        QFETCH(const double, celsius);
        const auto there = visit(u"2025-03-03T14:05:00Z"_s);
        there->setWeather(
            WeatherSnapshot{.temperatureC = celsius, .weatherCode = 61, .isDay = true});
        const VisitCard card = cardOf(*there);
        QVERIFY(card.hasWeather);
        QCOMPARE(card.weatherCode, 61);
        QVERIFY(card.isDay);
        QTEST(card.temperature, "text");
    }

    void theRatingsAreFourInTheirOrder()
    {
        const auto there = visit(u"2025-03-03T14:05:00Z"_s);
        there->setRatings({.wifiSpeed = 5, .outlets = 4, .noise = 0, .quietForCalls = 1});
        const VisitCard card = cardOf(*there);
        QCOMPARE(card.ratingLabels,
                 (QStringList{u"WiFi speed"_s, u"Power outlets"_s, u"Quiet"_s, u"Calls"_s}));
        QCOMPARE(card.ratingValues, (QList<int>{5, 4, 0, 1}));
    }

    void coordinatesHaveFourDecimalsAndALetter_data()
    {
        QTest::addColumn<double>("latitude");
        QTest::addColumn<double>("longitude");
        QTest::addColumn<QString>("text");
        QTest::newRow("origin") << 0.0 << 0.0 << u"0.0000°N, 0.0000°E"_s;
        QTest::newRow("negative zero") << -0.0 << -0.0 << u"0.0000°N, 0.0000°E"_s;
        QTest::newRow("a little below") << -0.00001 << -0.00001 << u"0.0000°S, 0.0000°W"_s;
        QTest::newRow("a little above") << 0.00001 << 0.00001 << u"0.0000°N, 0.0000°E"_s;
        QTest::newRow("Saigon") << 10.7769 << 106.7009 << u"10.7769°N, 106.7009°E"_s;
        QTest::newRow("Sydney") << -33.8568 << 151.2153 << u"33.8568°S, 151.2153°E"_s;
        QTest::newRow("New York") << 40.71278 << -74.00597 << u"40.7128°N, 74.0060°W"_s;
        QTest::newRow("corners") << -90.0 << -180.0 << u"90.0000°S, 180.0000°W"_s;
    }

    void coordinatesHaveFourDecimalsAndALetter()
    {
        QFETCH(const double, latitude);
        QFETCH(const double, longitude);
        QTEST(VisitCard::coordinateLabel(latitude, longitude), "text");
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::VisitCardTest)
#include "VisitCardTest.moc"
