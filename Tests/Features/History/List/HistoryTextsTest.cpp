#include "Features/History/List/HistoryTexts.h"

#include "Core/Support/AppError.h"
#include "Models/WeatherSnapshot.h"
#include "Platform/Clock/Calendar.h"
#include "Tests/Features/History/Visits.h"
#include "Tests/Support/SilentError.h"

#include <QLocale>
#include <QTest>
#include <QTimeZone>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

using State = HistoryViewModel::State;

const State failed = State::error(AppError::network(u"Disk full."_s));

State listed()
{
    return State::loaded({{.title = u"TODAY"_s, .checkIns = {visit(u"2025-03-03T09:00:00Z"_s)}}});
}

QString momentOf(const CheckIn &checkIn, const QByteArray &zone = "UTC",
                 const QLocale &locale = QLocale::c())
{
    return HistoryTexts::moment(checkIn, Calendar(QTimeZone(zone)), locale);
}

} // namespace

class HistoryTextsTest final : public QObject
{
    Q_OBJECT

private slots:
    void theWeekIsSummedUp_data()
    {
        QTest::addColumn<int>("visits");
        QTest::addColumn<int>("cafes");
        QTest::addColumn<QString>("text");
        QTest::newRow("none") << 0 << 0 << u"0 visits · 0 cafés this week"_s;
        QTest::newRow("one") << 1 << 1 << u"1 visits · 1 cafés this week"_s;
        QTest::newRow("some") << 3 << 2 << u"3 visits · 2 cafés this week"_s;
        QTest::newRow("thousands") << 12345 << 1000 << u"12345 visits · 1000 cafés this week"_s;
    }

    void theWeekIsSummedUp()
    {
        QFETCH(const int, visits);
        QFETCH(const int, cafes);
        QTEST(HistoryTexts::weeklySummary({.visits = visits, .cafes = cafes}), "text");
    }

    void aLoadThatFailedSaysWhy()
    {
        QCOMPARE(HistoryTexts::loadError(failed.errorValue()), u"Network error: Disk full."_s);
        const SilentError silent;
        QCOMPARE(HistoryTexts::loadError(&silent), u"Không tải được lịch sử check-in."_s);
        for (const State &state : {State::idle(), State::loading(), State::loaded({}), listed()})
            QCOMPARE(HistoryTexts::loadError(state.errorValue()), QString());
    }

    void onlyALoadedHistoryIsEmpty()
    {
        QVERIFY(HistoryTexts::isEmpty(State::loaded({})));
        for (const State &state : {State::idle(), State::loading(), failed, listed()})
            QVERIFY(!HistoryTexts::isEmpty(state));
    }

    void aVisitIsNamedAfterItsCafe()
    {
        const auto there = visit(u"2025-03-03T14:05:00Z"_s, cafe(u"Blue <b>Door</b>"_s));
        QCOMPARE(HistoryTexts::title(*there), u"Blue <b>Door</b>"_s);
        QCOMPARE(HistoryTexts::title(*visit(u"2025-03-03T14:05:00Z"_s)), u"Unknown café"_s);
    }

    void theTimeIsTheUsers()
    {
        const auto late = visit(u"2025-03-03T17:05:59.999Z"_s);
        QCOMPARE(momentOf(*late), u"17:05"_s);
        QCOMPARE(momentOf(*late, "Asia/Ho_Chi_Minh"), u"00:05"_s);
        QCOMPARE(momentOf(*late, "UTC", QLocale(u"en_US"_s)), u"17:05"_s);
        QCOMPARE(momentOf(*late, "UTC", QLocale(u"ar_EG"_s)), u"١٧:٠٥"_s);
    }

    void theTemperatureIsRoundedToTheNearest_data()
    {
        QTest::addColumn<double>("celsius");
        QTest::addColumn<QString>("text");
        QTest::newRow("22") << 22.0 << u"14:05 · 22°"_s;
        QTest::newRow("below a half") << 21.49 << u"14:05 · 21°"_s;
        QTest::newRow("a half") << 21.5 << u"14:05 · 22°"_s;
        QTest::newRow("just below zero") << -0.4 << u"14:05 · 0°"_s;
        QTest::newRow("a half below zero") << -0.5 << u"14:05 · -1°"_s;
        QTest::newRow("no number") << qQNaN() << u"14:05 · –°"_s;
    }

    void theTemperatureIsRoundedToTheNearest()
    {
        QFETCH(const double, celsius);
        const auto there = visit(u"2025-03-03T14:05:00Z"_s);
        there->setWeather(WeatherSnapshot{.temperatureC = celsius});
        QTEST(momentOf(*there), "text");
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::HistoryTextsTest)
#include "HistoryTextsTest.moc"
