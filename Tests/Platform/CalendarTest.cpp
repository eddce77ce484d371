#include "Platform/Clock/Clock.h"
#include "Platform/Clock/FakeClock.h"
#include "Tests/Support/Instants.h"

#include <QDate>
#include <QTest>
#include <QTime>
#include <QTimeZone>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quorvel::tests {

class CalendarTest final : public QObject
{
    Q_OBJECT

private slots:
    void aDayRunsFromMidnightToMidnight_data()
    {
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<QString>("moment");
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("end");
        const auto row = [](const char *name, const char *zone, const QString &moment,
                            const QString &start, const QString &end) {
            QTest::newRow(name) << QByteArray(zone) << moment << start << end;
        };
        row("UTC", "UTC", u"2026-11-21T12:00:00Z"_s, u"2026-11-21T00:00:00Z"_s,
            u"2026-11-22T00:00:00Z"_s);
        row("first millisecond", "Asia/Ho_Chi_Minh", u"2026-11-20T17:00:00.000Z"_s,
            u"2026-11-20T17:00:00Z"_s, u"2026-11-21T17:00:00Z"_s);
        row("last millisecond", "Asia/Ho_Chi_Minh", u"2026-11-20T16:59:59.999Z"_s,
            u"2026-11-19T17:00:00Z"_s, u"2026-11-20T17:00:00Z"_s);
        row("14 hours ahead", "Pacific/Kiritimati", u"2026-11-21T12:00:00Z"_s,
            u"2026-11-21T10:00:00Z"_s, u"2026-11-22T10:00:00Z"_s);
        row("three quarters of an hour", "Asia/Kathmandu", u"2026-11-21T12:00:00Z"_s,
            u"2026-11-20T18:15:00Z"_s, u"2026-11-21T18:15:00Z"_s);
        row("23 hours", "Europe/Berlin", u"2026-03-29T12:00:00Z"_s, u"2026-03-28T23:00:00Z"_s,
            u"2026-03-29T22:00:00Z"_s);
        row("25 hours", "Europe/Berlin", u"2026-10-25T12:00:00Z"_s, u"2026-10-24T22:00:00Z"_s,
            u"2026-10-25T23:00:00Z"_s);
        row("midnight is skipped", "America/Havana", u"2026-03-08T12:00:00Z"_s,
            u"2026-03-08T05:00:00Z"_s, u"2026-03-09T04:00:00Z"_s);
        row("the night before it is skipped", "America/Havana", u"2026-03-08T04:59:59.999Z"_s,
            u"2026-03-07T05:00:00Z"_s, u"2026-03-08T05:00:00Z"_s);
        row("midnight comes twice", "America/Havana", u"2026-11-01T12:00:00Z"_s,
            u"2026-11-01T04:00:00Z"_s, u"2026-11-02T05:00:00Z"_s);
        row("a half-hour change", "Australia/Lord_Howe", u"2026-04-05T02:00:00Z"_s,
            u"2026-04-04T13:00:00Z"_s, u"2026-04-05T13:30:00Z"_s);
        row("the day before a day that never was", "Pacific/Apia", u"2011-12-29T12:00:00-10:00"_s,
            u"2011-12-29T10:00:00Z"_s, u"2011-12-30T10:00:00Z"_s);
        row("the day after it", "Pacific/Apia", u"2011-12-31T12:00:00+14:00"_s,
            u"2011-12-30T10:00:00Z"_s, u"2011-12-31T10:00:00Z"_s);
        row("before 1970", "UTC", u"1969-07-20T20:17:40Z"_s, u"1969-07-20T00:00:00Z"_s,
            u"1969-07-21T00:00:00Z"_s);
    }

    void aDayRunsFromMidnightToMidnight()
    {
        QFETCH(QByteArray, zone);
        QFETCH(QString, moment);
        QFETCH(QString, start);
        QFETCH(QString, end);
        const QTimeZone timeZone(zone);
        QVERIFY(timeZone.isValid());
        const DateInterval day = Calendar(timeZone).day(instant(moment));
        QCOMPARE(day, (DateInterval{instant(start), instant(end)}));
        QVERIFY(day.contains(instant(moment)));
    }

    void aDayHoldsItsStartAndNotItsEnd()
    {
        const DateInterval day{instant(u"2026-11-21T00:00:00Z"_s),
                               instant(u"2026-11-22T00:00:00Z"_s)};
        QVERIFY(!day.contains(day.start - 1ms));
        QVERIFY(day.contains(day.start));
        QVERIFY(day.contains(day.end - 1ms));
        QVERIFY(!day.contains(day.end));
    }

    void everyInstantOfAYearIsInTheDayThatItNames_data()
    {
        QTest::addColumn<QByteArray>("zone");
        for (const char *zone : {"Europe/Berlin", "America/Havana", "America/St_Johns",
                                 "Australia/Lord_Howe", "Asia/Beirut", "Africa/Cairo"})
            QTest::newRow(zone) << QByteArray(zone);
    }

    void everyInstantOfAYearIsInTheDayThatItNames()
    {
        QFETCH(QByteArray, zone);
        const Calendar calendar{QTimeZone(zone)};
        const Instant newYear = instant(u"2026-01-01T12:00:00Z"_s);
        DateInterval day = calendar.day(newYear);
        for (Instant moment = newYear; moment < newYear + 24h * 365; moment += 30min) {
            const DateInterval its = calendar.day(moment);
            QVERIFY(its.contains(moment));
            if (its == day)
                continue;
            QCOMPARE(its.start, day.end);
            day = its;
        }
    }

    void theDayBeforeEndsWhereTheDayStarts_data()
    {
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<QString>("moment");
        QTest::addColumn<QString>("start");
        const auto row = [](const char *name, const char *zone, const QString &moment,
                            const QString &start) {
            QTest::newRow(name) << QByteArray(zone) << moment << start;
        };
        row("usual", "Asia/Ho_Chi_Minh", u"2026-11-21T12:00:00Z"_s, u"2026-11-19T17:00:00Z"_s);
        row("first millisecond", "UTC", u"2026-11-21T00:00:00Z"_s, u"2026-11-20T00:00:00Z"_s);
        row("last millisecond", "UTC", u"2026-11-21T23:59:59.999Z"_s, u"2026-11-20T00:00:00Z"_s);
        row("after 23 hours", "Europe/Berlin", u"2026-03-30T00:30:00+02:00"_s,
            u"2026-03-28T23:00:00Z"_s);
        row("after 25 hours", "Europe/Berlin", u"2026-10-26T23:30:00+01:00"_s,
            u"2026-10-24T22:00:00Z"_s);
        row("after a skipped midnight", "America/Havana", u"2026-03-09T12:00:00Z"_s,
            u"2026-03-08T05:00:00Z"_s);
        row("over a day that never was", "Pacific/Apia", u"2011-12-31T12:00:00+14:00"_s,
            u"2011-12-29T10:00:00Z"_s);
        row("new year", "UTC", u"2027-01-01T12:00:00Z"_s, u"2026-12-31T00:00:00Z"_s);
    }

    void theDayBeforeEndsWhereTheDayStarts()
    {
        QFETCH(const QByteArray, zone);
        QFETCH(const QString, moment);
        QFETCH(const QString, start);
        const Calendar calendar{QTimeZone(zone)};
        const auto before = calendar.dayBefore(instant(moment));
        QVERIFY(before);
        QCOMPARE(before->start, instant(start));
        QCOMPARE(before->end, calendar.day(instant(moment)).start);
    }

    void thereIsNoDayBeforeTimeStarts()
    {
        const Calendar calendar{QTimeZone::utc()};
        QVERIFY(!calendar.dayBefore(Instant::min()));
        QVERIFY(calendar.dayBefore(Instant::min() + 48h));
        QVERIFY(calendar.day(Instant::min()).contains(Instant::min()));
        QCOMPARE(calendar.day(Instant::max()).end, Instant::max());
    }

    void aWeekRunsFromItsFirstWeekday_data()
    {
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<int>("firstWeekday");
        QTest::addColumn<QString>("moment");
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("end");
        const auto row = [](const char *name, const char *zone, Qt::DayOfWeek firstWeekday,
                            const QString &moment, const QString &start, const QString &end) {
            QTest::newRow(name) << QByteArray(zone) << int(firstWeekday) << moment << start << end;
        };
        const auto saturday = u"2026-11-21T12:00:00Z"_s;
        row("Monday", "UTC", Qt::Monday, saturday, u"2026-11-16T00:00:00Z"_s,
            u"2026-11-23T00:00:00Z"_s);
        row("Sunday", "UTC", Qt::Sunday, saturday, u"2026-11-15T00:00:00Z"_s,
            u"2026-11-22T00:00:00Z"_s);
        row("Saturday", "UTC", Qt::Saturday, saturday, u"2026-11-21T00:00:00Z"_s,
            u"2026-11-28T00:00:00Z"_s);
        row("Friday", "UTC", Qt::Friday, saturday, u"2026-11-20T00:00:00Z"_s,
            u"2026-11-27T00:00:00Z"_s);
        row("first millisecond", "Asia/Ho_Chi_Minh", Qt::Monday, u"2026-11-15T17:00:00.000Z"_s,
            u"2026-11-15T17:00:00Z"_s, u"2026-11-22T17:00:00Z"_s);
        row("last millisecond", "Asia/Ho_Chi_Minh", Qt::Monday, u"2026-11-15T16:59:59.999Z"_s,
            u"2026-11-08T17:00:00Z"_s, u"2026-11-15T17:00:00Z"_s);
        row("begins in the old year", "UTC", Qt::Monday, u"2025-01-01T12:00:00Z"_s,
            u"2024-12-30T00:00:00Z"_s, u"2025-01-06T00:00:00Z"_s);
        row("ends in the new year", "UTC", Qt::Monday, u"2024-12-30T12:00:00Z"_s,
            u"2024-12-30T00:00:00Z"_s, u"2025-01-06T00:00:00Z"_s);
        row("the last of 53", "UTC", Qt::Monday, u"2027-01-03T12:00:00Z"_s,
            u"2026-12-28T00:00:00Z"_s, u"2027-01-04T00:00:00Z"_s);
        row("an hour short", "Europe/Berlin", Qt::Monday, u"2026-03-29T12:00:00Z"_s,
            u"2026-03-22T23:00:00Z"_s, u"2026-03-29T22:00:00Z"_s);
        row("an hour long", "Europe/Berlin", Qt::Monday, u"2026-10-25T12:00:00Z"_s,
            u"2026-10-18T22:00:00Z"_s, u"2026-10-25T23:00:00Z"_s);
        row("begins where midnight is skipped", "America/Havana", Qt::Sunday,
            u"2026-03-10T12:00:00Z"_s, u"2026-03-08T05:00:00Z"_s, u"2026-03-15T04:00:00Z"_s);
        row("six days", "Pacific/Apia", Qt::Monday, u"2011-12-31T12:00:00+14:00"_s,
            u"2011-12-26T10:00:00Z"_s, u"2012-01-01T10:00:00Z"_s);
    }

    void aWeekRunsFromItsFirstWeekday()
    {
        QFETCH(const QByteArray, zone);
        QFETCH(const int, firstWeekday);
        QFETCH(const QString, moment);
        QFETCH(const QString, start);
        QFETCH(const QString, end);
        const Calendar calendar{QTimeZone(zone), Qt::DayOfWeek(firstWeekday)};
        const DateInterval week = calendar.week(instant(moment));
        QCOMPARE(week, (DateInterval{instant(start), instant(end)}));
        QVERIFY(week.contains(instant(moment)));
    }

    void localTimeIsWhatTheWallShows()
    {
        const Calendar calendar{QTimeZone("Asia/Kathmandu")};
        const QDateTime local = calendar.localTime(instant(u"2026-11-20T18:15:00Z"_s));
        QCOMPARE(local.date(), QDate(2026, 11, 21));
        QCOMPARE(local.time(), QTime(0, 0));
    }

    void theSystemClockTellsTheTime()
    {
        const Instant before =
            std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());
        const Instant now = Clock::system().now();
        QVERIFY(now >= before);
        QVERIFY(now < before + 1min);
    }

    void theSystemClockFollowsTheUsersTimeZone()
    {
        qputenv("TZ", "Asia/Ho_Chi_Minh");
        QCOMPARE(Clock::system().calendar().timeZone().id(), "Asia/Ho_Chi_Minh"_ba);
        qputenv("TZ", "America/Havana");
        QCOMPARE(Clock::system().calendar().timeZone().id(), "America/Havana"_ba);
    }

    void theSystemClockFollowsTheUsersLocaleForTimes_data()
    {
        QTest::addColumn<QByteArray>("all");
        QTest::addColumn<QByteArray>("time");
        QTest::addColumn<QByteArray>("language");
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("firstWeekday");
        const auto row = [](const char *all, const char *time, const char *language,
                            const QString &name, Qt::DayOfWeek firstWeekday) {
            QTest::addRow("%s/%s/%s", all, time, language)
                << QByteArray(all) << QByteArray(time) << QByteArray(language) << name
                << int(firstWeekday);
        };
        row("", "", "en_US.UTF-8", u"en_US"_s, Qt::Sunday);
        row("", "vi_VN.UTF-8", "en_US.UTF-8", u"vi_VN"_s, Qt::Monday);
        row("ar_EG.UTF-8", "vi_VN.UTF-8", "en_US.UTF-8", u"ar_EG"_s, Qt::Saturday);
        row("", "", "de_DE@euro", u"de_DE"_s, Qt::Monday);
        row("", "", "C.UTF-8", u"C"_s, Qt::Monday);
        row("", "", "", u"C"_s, Qt::Monday);
    }

    void theSystemClockFollowsTheUsersLocaleForTimes()
    {
        QFETCH(const QByteArray, all);
        QFETCH(const QByteArray, time);
        QFETCH(const QByteArray, language);
        qputenv("LC_ALL", all);
        qputenv("LC_TIME", time);
        qputenv("LANG", language);
        QTEST(Clock::system().locale().name(), "name");
        QTEST(int(Clock::system().calendar().firstWeekday()), "firstWeekday");
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::CalendarTest)
#include "CalendarTest.moc"
