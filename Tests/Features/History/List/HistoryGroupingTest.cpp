#include "Features/History/List/HistoryGrouping.h"

#include "Models/WorkRatings.h"
#include "Tests/Features/History/Visits.h"

#include <QTest>
#include <QTimeZone>
#include <QUuid>

#include <memory>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

/// The time and place at which the history is viewed.
struct View
{
    QString now = {};
    QByteArray zone = "UTC";
    QLocale locale = QLocale(u"en_US"_s);

    [[nodiscard]] std::vector<HistorySection> group(const Visits &visits) const
    {
        return HistoryGrouping::group(visits, instant(now), Calendar(QTimeZone(zone)), locale);
    }
    [[nodiscard]] QStringList titles(const QStringList &dates) const
    {
        QStringList result;
        for (const HistorySection &section : group(visits(dates)))
            result.append(u"%1 ×%2"_s.arg(section.title).arg(section.checkIns.size()));
        return result;
    }
};

const View tuesday{.now = u"2025-03-11T12:00:00Z"_s};

} // namespace

class HistoryGroupingTest final : public QObject
{
    Q_OBJECT

private slots:
    void noVisitsAreNoSections() { QCOMPARE(tuesday.group({}).size(), 0U); }

    void visitsOfADayShareASectionInTheirOrder()
    {
        const Visits given = visits({u"2025-03-11T11:00:00Z"_s, u"2025-03-11T11:00:00Z"_s,
                                     u"2025-03-11T09:00:00Z"_s, u"2025-03-10T20:00:00Z"_s});
        const auto sections = tuesday.group(given);
        QCOMPARE(sections.size(), 2U);
        QCOMPARE(sections[0].title, u"TODAY"_s);
        QVERIFY(sections[0].checkIns == Visits(given.begin(), given.begin() + 3));
        QCOMPARE(sections[1].title, u"YESTERDAY"_s);
        QVERIFY(sections[1].checkIns == Visits(given.begin() + 3, given.end()));
    }

    void aSectionIsIdentifiedByItsTitle()
    {
        QCOMPARE(tuesday.group(visits({u"2025-03-03T09:00:00Z"_s}))[0].id(), u"MON, MAR 3"_s);
    }

    void sectionsAreEqualWithTheSameVisitsOnly()
    {
        const auto one = visit(u"2025-03-11T09:00:00Z"_s);
        const auto other = visit(u"2025-03-11T09:00:00Z"_s);
        const HistorySection section{.title = u"TODAY"_s, .checkIns = {one}};
        QVERIFY(section == (HistorySection{.title = u"TODAY"_s, .checkIns = {one}}));
        QVERIFY(section != (HistorySection{.title = u"TODAY"_s, .checkIns = {other}}));
        QVERIFY(section != (HistorySection{.title = u"YESTERDAY"_s, .checkIns = {one}}));
    }

    void onlyNeighboursAreMerged()
    {
        QCOMPARE(tuesday.titles({u"2025-03-11T11:00:00Z"_s, u"2025-03-03T09:00:00Z"_s,
                                 u"2025-03-11T09:00:00Z"_s, u"2025-03-11T08:00:00Z"_s}),
                 (QStringList{u"TODAY ×1"_s, u"MON, MAR 3 ×1"_s, u"TODAY ×2"_s}));
    }

    void neighboursOfTwoYearsWithOneTitleAreMerged()
    {
        QCOMPARE(tuesday.titles({u"2025-03-03T09:00:00Z"_s, u"2014-03-03T09:00:00Z"_s,
                                 u"2013-03-03T09:00:00Z"_s}),
                 (QStringList{u"MON, MAR 3 ×2"_s, u"SUN, MAR 3 ×1"_s}));
    }

    void twoYearsWithOneTitleApartAreTwoSections()
    {
        QCOMPARE(tuesday.titles({u"2025-03-03T09:00:00Z"_s, u"2024-03-03T09:00:00Z"_s,
                                 u"2014-03-03T09:00:00Z"_s}),
                 (QStringList{u"MON, MAR 3 ×1"_s, u"SUN, MAR 3 ×1"_s, u"MON, MAR 3 ×1"_s}));
    }

    void yesterdayIsTheDayBeforeNowWhateverStandsAbove()
    {
        QCOMPARE(tuesday.titles({u"2025-03-09T09:00:00Z"_s, u"2025-03-08T09:00:00Z"_s}),
                 (QStringList{u"SUN, MAR 9 ×1"_s, u"SAT, MAR 8 ×1"_s}));
    }

    void whereTimeStartsThereIsNoYesterday()
    {
        const auto first =
            std::make_shared<CheckIn>(QUuid::createUuid(), Instant::min(), QString(), std::nullopt,
                                      std::nullopt, WorkRatings(), std::nullopt, nullptr);
        const auto sections = HistoryGrouping::group({first}, Instant::min(),
                                                     Calendar(QTimeZone::utc()), QLocale::c());
        QCOMPARE(sections.size(), 1U);
        QCOMPARE(sections[0].title, u"TODAY"_s);
    }

    void eachDayHasItsTitle_data()
    {
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<QString>("now");
        QTest::addColumn<QString>("date");
        QTest::addColumn<QString>("title");
        const auto row = [](const char *name, const char *zone, const QString &now,
                            const QString &date, const QString &title) {
            QTest::newRow(name) << QByteArray(zone) << now << date << title;
        };
        const auto today = u"TODAY"_s;
        const auto yesterday = u"YESTERDAY"_s;

        const auto noon = u"2025-03-11T12:00:00Z"_s;
        row("now", "UTC", noon, noon, today);
        row("last midnight", "UTC", noon, u"2025-03-11T00:00:00Z"_s, today);
        row("a millisecond earlier", "UTC", noon, u"2025-03-10T23:59:59.999Z"_s, yesterday);
        row("a second earlier", "UTC", noon, u"2025-03-10T23:59:59Z"_s, yesterday);
        row("yesterday's midnight", "UTC", noon, u"2025-03-10T00:00:00Z"_s, yesterday);
        row("before yesterday", "UTC", noon, u"2025-03-09T23:59:59.999Z"_s, u"SUN, MAR 9"_s);
        row("eight days ago", "UTC", noon, u"2025-03-03T12:00:00Z"_s, u"MON, MAR 3"_s);
        row("later today", "UTC", noon, u"2025-03-11T23:59:59.999Z"_s, today);
        row("tomorrow", "UTC", noon, u"2025-03-12T00:00:00Z"_s, u"WED, MAR 12"_s);
        row("years ahead", "UTC", noon, u"2031-12-31T12:00:00Z"_s, u"WED, DEC 31"_s);
        row("before 1970", "UTC", noon, u"1969-07-20T20:17:40Z"_s, u"SUN, JUL 20"_s);

        const auto exactly = u"2025-03-11T00:00:00Z"_s;
        row("at midnight: now", "UTC", exactly, exactly, today);
        row("at midnight: before", "UTC", exactly, u"2025-03-10T23:59:59.999Z"_s, yesterday);
        row("new year", "UTC", u"2026-01-01T08:00:00Z"_s, u"2025-12-31T08:00:00Z"_s, yesterday);

        const auto saigon = u"2025-03-11T00:30:00+07:00"_s;
        row("Saigon: after midnight", "Asia/Ho_Chi_Minh", saigon, u"2025-03-10T17:00:00Z"_s, today);
        row("Saigon: before midnight", "Asia/Ho_Chi_Minh", saigon, u"2025-03-10T16:59:59.999Z"_s,
            yesterday);
        row("the same in Los Angeles", "America/Los_Angeles", saigon, u"2025-03-10T16:59:59.999Z"_s,
            today);

        const auto spring = u"2026-03-29T23:30:00+02:00"_s;
        row("23 hours: first", "Europe/Berlin", spring, u"2026-03-29T00:00:00+01:00"_s, today);
        row("23 hours: the day before", "Europe/Berlin", spring, u"2026-03-28T23:59:59+01:00"_s,
            yesterday);
        row("after 23 hours", "Europe/Berlin", u"2026-03-30T23:30:00+02:00"_s,
            u"2026-03-29T00:00:00+01:00"_s, yesterday);
        row("24 hours before 00:30 after 23 hours", "Europe/Berlin", u"2026-03-30T00:30:00+02:00"_s,
            u"2026-03-28T23:30:00+01:00"_s, u"SAT, MAR 28"_s);

        const auto autumn = u"2026-10-25T23:30:00+01:00"_s;
        row("25 hours: first", "Europe/Berlin", autumn, u"2026-10-25T00:00:00+02:00"_s, today);
        row("25 hours: the hour that comes twice", "Europe/Berlin", autumn,
            u"2026-10-25T02:30:00+01:00"_s, today);
        row("24 hours before 23:30 of 25 hours", "Europe/Berlin", autumn,
            u"2026-10-24T23:30:00+02:00"_s, yesterday);
        row("after 25 hours", "Europe/Berlin", u"2026-10-26T23:30:00+01:00"_s,
            u"2026-10-25T00:00:00+02:00"_s, yesterday);

        const auto havana = u"2026-03-08T12:00:00-04:00"_s;
        row("no midnight: the first hour", "America/Havana", havana, u"2026-03-08T05:00:00Z"_s,
            today);
        row("no midnight: before it", "America/Havana", havana, u"2026-03-08T04:59:59.999Z"_s,
            yesterday);
        row("two midnights: the first", "America/Havana", u"2026-11-01T12:00:00-05:00"_s,
            u"2026-11-01T04:00:00Z"_s, today);
        row("two midnights: before it", "America/Havana", u"2026-11-01T12:00:00-05:00"_s,
            u"2026-11-01T03:59:59.999Z"_s, yesterday);
        row("over a day that never was", "Pacific/Apia", u"2011-12-31T12:00:00+14:00"_s,
            u"2011-12-29T12:00:00-10:00"_s, yesterday);
    }

    void eachDayHasItsTitle()
    {
        QFETCH(const QByteArray, zone);
        QFETCH(const QString, now);
        QFETCH(const QString, date);
        const View view{.now = now, .zone = zone};
        const auto sections = view.group(visits({date}));
        QCOMPARE(sections.size(), 1U);
        QTEST(sections[0].title, "title");
    }

    void titlesAreInTheUsersLanguage_data()
    {
        QTest::addColumn<QString>("title");
        QTest::newRow("C") << u"FRI, OCT 3"_s;
        QTest::newRow("en_US") << u"FRI, OCT 3"_s;
        QTest::newRow("vi_VN") << u"TH 6, THG 10 3"_s;
        QTest::newRow("de_DE") << u"FR., OKT. 3"_s;
        QTest::newRow("tr_TR") << u"CUM, EKİ 3"_s;
        QTest::newRow("ar_EG") << u"الجمعة, أكتوبر ٣"_s;
    }

    void titlesAreInTheUsersLanguage()
    {
        const View view{.now = u"2025-11-11T12:00:00Z"_s,
                        .locale = QLocale(QString::fromLatin1(QTest::currentDataTag()))};
        QTEST(view.group(visits({u"2025-10-03T12:00:00Z"_s}))[0].title, "title");
        QCOMPARE(view.group(visits({u"2025-11-11T12:00:00Z"_s}))[0].title, u"TODAY"_s);
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::HistoryGroupingTest)
#include "HistoryGroupingTest.moc"
