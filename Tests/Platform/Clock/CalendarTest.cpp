#include "Platform/Clock/Clock.h"
#include "Platform/Clock/FakeClock.h"
#include "Tests/Support/Instants.h"

#include <QTest>

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
        const DayInterval day = Calendar(timeZone).day(instant(moment));
        QCOMPARE(day, (DayInterval{instant(start), instant(end)}));
        QVERIFY(day.contains(instant(moment)));
    }

    void aDayHoldsItsStartAndNotItsEnd()
    {
        const DayInterval day{instant(u"2026-11-21T00:00:00Z"_s),
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
        DayInterval day = calendar.day(newYear);
        for (Instant moment = newYear; moment < newYear + 24h * 365; moment += 30min) {
            const DayInterval its = calendar.day(moment);
            QVERIFY(its.contains(moment));
            if (its == day)
                continue;
            QCOMPARE(its.start, day.end);
            day = its;
        }
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
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::CalendarTest)
#include "CalendarTest.moc"
