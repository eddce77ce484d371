#include "Features/Terminal/Commands/HistoryCommand.h"

#include "Models/Cafe.h"
#include "Models/CheckIn.h"
#include "Models/WeatherSnapshot.h"
#include "Models/WorkRatings.h"
#include "Tests/Features/Terminal/TerminalWorld.h"

#include <QJsonArray>
#include <QTest>
#include <QTimeZone>
#include <QUuid>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

std::shared_ptr<CheckIn> visit(const QString &date, const QString &cafe, const QString &note = {})
{
    const auto place =
        std::make_shared<Cafe>(QUuid::createUuid(), cafe, 1, 2, std::nullopt, std::nullopt);
    return std::make_shared<CheckIn>(QUuid::createUuid(), instant(date), note, std::nullopt,
                                     std::nullopt, WorkRatings{4, 3, 2, 5},
                                     WeatherSnapshot{.temperatureC = 21.6}, place);
}

} // namespace

class HistoryCommandTest final : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.emplace(); }

    void visitsAreListedByDayNewestFirst()
    {
        m_world->store.visits = {visit(u"2026-11-09T10:00:00Z"_s, u"Old"_s),
                                 visit(u"2026-11-20T10:00:00Z"_s, u"Blue"_s),
                                 visit(u"2026-11-21T08:05:00Z"_s, u"Red"_s, u"calm\ncorner"_s)};
        QCOMPARE(m_world->run({u"history"_s}), done);
        QCOMPARE(m_world->printed(), u"2 visits · 2 cafés this week\n"
                                     "\n"
                                     "TODAY\n"
                                     "  08:05 · 22°  Red\n"
                                     "    Wifi 4 · Power 3 · Quiet 2 · Calls 5\n"
                                     "    calm corner\n"
                                     "\n"
                                     "YESTERDAY\n"
                                     "  10:00 · 22°  Blue\n"
                                     "    Wifi 4 · Power 3 · Quiet 2 · Calls 5\n"
                                     "\n"
                                     "MON, NOV 9\n"
                                     "  10:00 · 22°  Old\n"
                                     "    Wifi 4 · Power 3 · Quiet 2 · Calls 5\n"_s);
    }

    void noVisitsAreSaidAndNoFailure()
    {
        QCOMPARE(m_world->run({u"history"_s}), done);
        QCOMPARE(m_world->printed(), u"No check-ins yet\n"_s);
        QCOMPARE(m_world->run({u"history"_s, u"--json"_s}), done);
        QCOMPARE(m_world->printedJson(),
                 (QJsonObject{{u"version"_s, 1}, {u"visits"_s, QJsonArray()}}));
    }

    void jsonListsThemNewestFirst()
    {
        m_world->store.visits = {visit(u"2026-11-20T10:00:00Z"_s, u"Blue"_s),
                                 visit(u"2026-11-21T08:05:00Z"_s, u"Red"_s)};
        QCOMPARE(m_world->run({u"history"_s, u"--json"_s}), done);
        const auto visits = m_world->printedJson()[u"visits"].toArray();
        QCOMPARE(visits.size(), 2);
        QCOMPARE(visits[0][u"cafe"][u"name"], u"Red"_s);
        QCOMPARE(visits[1][u"date"], u"2026-11-20T10:00:00.000Z"_s);
    }

    void aDayBeginsAtTheUsersMidnight()
    {
        m_world->loop.clock.timeZone = QTimeZone("Asia/Ho_Chi_Minh");
        m_world->store.visits = {visit(u"2026-11-09T16:59:59.999Z"_s, u"Before"_s),
                                 visit(u"2026-11-09T17:00:00Z"_s, u"At"_s)};
        QCOMPARE(m_world->run({u"history"_s, u"--json"_s, u"--since"_s, u"2026-11-10"_s}), done);
        const auto visits = m_world->printedJson()[u"visits"].toArray();
        QCOMPARE(visits.size(), 1);
        QCOMPARE(visits[0][u"cafe"][u"name"], u"At"_s);
    }

    void aDayOfTwentyThreeHoursBeginsAtItsMidnightToo()
    {
        m_world->loop.clock.timeZone = QTimeZone("Europe/Berlin");
        m_world->store.visits = {visit(u"2026-03-28T22:59:59Z"_s, u"Before"_s),
                                 visit(u"2026-03-28T23:00:00Z"_s, u"At"_s)};
        QCOMPARE(m_world->run({u"history"_s, u"--json"_s, u"--since=2026-03-29"_s}), done);
        QCOMPARE(m_world->printedJson()[u"visits"].toArray().size(), 1);
    }

    void whenNothingIsThatNewItIsSaid()
    {
        m_world->store.visits = {visit(u"2026-11-20T10:00:00Z"_s, u"Blue"_s)};
        QCOMPARE(m_world->run({u"history"_s, u"--since"_s, u"2026-11-21"_s}), done);
        QCOMPARE(m_world->printed(),
                 u"1 visits · 1 cafés this week\n\nNo check-ins since that day\n"_s);
    }

    void whatIsNoDayIsRefused_data()
    {
        QTest::addColumn<QString>("day");
        for (const QString &day :
             {u"2026-02-29"_s, u"2026-13-01"_s, u"2026-1-1"_s, u"26-01-01"_s, u"2026-01-01T00"_s,
              u"01.01.2026"_s, u"today"_s, u""_s, u" 2026-01-01"_s, u"2026-01- 1"_s,
              u"+2026-01-01"_s, u"0000-01-01"_s})
            QTest::newRow(qPrintable(day)) << day;
    }

    void whatIsNoDayIsRefused()
    {
        QFETCH(const QString, day);
        QCOMPARE(m_world->run({u"history"_s, u"--since"_s, day}), usage);
        QVERIFY(m_world->noted().startsWith(
            u"quorvel: “%1” is no day as in “2026-03-01”\n"_s.arg(day)));
        QVERIFY(m_world->store.calls.isEmpty());
    }

    void daysAtTheEndsOfTimeAreDays()
    {
        m_world->store.visits = {visit(u"2026-11-20T10:00:00Z"_s, u"Blue"_s)};
        QCOMPARE(m_world->run({u"history"_s, u"--json"_s, u"--since"_s, u"0001-01-01"_s}), done);
        QCOMPARE(m_world->printedJson()[u"visits"].toArray().size(), 1);
        QCOMPARE(m_world->run({u"history"_s, u"--json"_s, u"--since"_s, u"9999-12-31"_s}), done);
        QCOMPARE(m_world->printedJson()[u"visits"].toArray().size(), 0);
    }

    void aStoreThatFailsIsAFailure()
    {
        m_world->store.failing = {u"allCheckIns"_s};
        m_world->store.failure = u"The disk\u001b is gone."_s;
        QCOMPARE(m_world->run({u"history"_s}), failure);
        QCOMPARE(m_world->printed(), QString());
        QCOMPARE(m_world->noted(), u"quorvel: Network error: The disk\ufffd is gone.\n"_s);
        m_world->storeFailure.emplace(u"No store."_s);
        QCOMPARE(m_world->run({u"history"_s}), failure);
        QCOMPARE(m_world->noted(), u"quorvel: No store.\n"_s);
    }

    void whatIsStoredGivesTheTerminalNoOrders()
    {
        m_world->store.visits = {visit(u"2026-11-20T10:00:00Z"_s, u"\u001b[2J"_s, u"\u009b\r\b"_s)};
        for (const QStringList &arguments :
             {QStringList{u"history"_s}, QStringList{u"history"_s, u"--json"_s}}) {
            QCOMPARE(m_world->run(arguments), done);
            for (const QChar order : {u'\u001b', u'\u009b', u'\r', u'\b'})
                QVERIFY(!m_world->printed().contains(order));
        }
    }

    void itHelps()
    {
        QCOMPARE(m_world->run({u"history"_s, u"--help"_s}), done);
        QVERIFY(m_world->printed().contains(u"--since DAY"_s));
        QVERIFY(m_world->store.calls.isEmpty());
    }

private:
    std::optional<TerminalWorld> m_world;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::HistoryCommandTest)
#include "HistoryCommandTest.moc"
