#include "Features/History/HistoryViewModel.h"

#include "Core/Persistence/FakeCheckInRepository.h"
#include "Core/Support/AppError.h"
#include "Platform/Clock/FakeClock.h"
#include "Tests/Features/History/Visits.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTest>
#include <QTimeZone>

#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

using State = HistoryViewModel::State;
using WeeklySummary = HistoryViewModel::WeeklySummary;

struct World
{
    FakeCheckInRepository repository;
    FakeClock clock{instant(u"2026-11-21T12:00:00Z"_s)};
    NotificationCenter center;
    std::optional<HistoryViewModel> viewModel{std::in_place, repository, clock, center};
    std::vector<State> states;

    World()
    {
        QObject::connect(&*viewModel, &HistoryViewModel::stateChanged, &*viewModel,
                         [this] { states.push_back(viewModel->state()); });
    }

    void fail(const QString &sentence)
    {
        repository.failing = {u"allCheckIns"_s};
        repository.failure = sentence;
    }
    [[nodiscard]] qsizetype loads() const { return repository.calls.count(u"allCheckIns"_s); }
};

/// Runs everything that is queued for a later turn.
void settle()
{
    QCoreApplication::processEvents();
}

} // namespace

class HistoryViewModelTest final : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.emplace(); }
    void cleanup() { m_world.reset(); }

    void beforeItsFirstLoadItIsIdle()
    {
        settle();
        QVERIFY(viewModel().state().isIdle());
        QCOMPARE(m_world->repository.calls, QStringList());
        QVERIFY(viewModel().weeklySummary() == WeeklySummary());
    }

    void aLoadOfNothingIsLoaded()
    {
        viewModel().load();
        QVERIFY(m_world->states == (std::vector{State::loading(), State::loaded({})}));
        QVERIFY(viewModel().weeklySummary() == WeeklySummary());
    }

    void aLoadGroupsByTheUsersClock()
    {
        m_world->clock.timeZone = QTimeZone("Asia/Ho_Chi_Minh");
        m_world->clock.userLocale = QLocale(u"vi_VN"_s);
        m_world->repository.visits = visits(
            {u"2026-11-02T05:00:00Z"_s, u"2026-11-20T16:59:59.999Z"_s, u"2026-11-20T17:00:00Z"_s});
        viewModel().load();
        const auto &stored = m_world->repository.visits;
        const HistoryViewModel::Sections expected{
            {.title = u"TODAY"_s, .checkIns = {stored[2]}},
            {.title = u"YESTERDAY"_s, .checkIns = {stored[1]}},
            {.title = u"TH 2, THG 11 2"_s, .checkIns = {stored[0]}}};
        QVERIFY(viewModel().state() == State::loaded(expected));
    }

    void everyLoadPassesThroughLoading()
    {
        viewModel().load();
        viewModel().load();
        const std::vector expected{State::loading(), State::loaded({}), State::loading(),
                                   State::loaded({})};
        QVERIFY(m_world->states == expected);
    }

    void aFailureTakesThePlaceOfTheSections()
    {
        m_world->repository.visits = visits({u"2026-11-21T09:00:00Z"_s});
        viewModel().load();
        m_world->fail(u"Disk full."_s);
        viewModel().load();
        QVERIFY(viewModel().state() == State::error(AppError::network(u"Disk full."_s)));
        QCOMPARE(viewModel().state().errorValue()->errorDescription(),
                 u"Network error: Disk full."_s);
        QVERIFY(viewModel().weeklySummary() == WeeklySummary());
    }

    void aFailureIsOverWithTheNextLoad()
    {
        m_world->fail(u"Disk full."_s);
        viewModel().load();
        m_world->repository.failing.clear();
        viewModel().load();
        QVERIFY(viewModel().state() == State::loaded({}));
    }

    void whileLoadingTheSummaryIsEmpty()
    {
        m_world->repository.visits = visits({u"2026-11-21T09:00:00Z"_s});
        viewModel().load();
        std::vector<WeeklySummary> seen;
        connect(&viewModel(), &HistoryViewModel::stateChanged, this,
                [&] { seen.push_back(viewModel().weeklySummary()); });
        viewModel().load();
        QVERIFY(seen == (std::vector<WeeklySummary>{{}, {.visits = 1}}));
    }

    void aSavedCheckInLoadsAgainInATurnOfItsOwn()
    {
        viewModel().load();
        m_world->repository.visits = visits({u"2026-11-21T09:00:00Z"_s});
        m_world->center.post(checkInDidSave);
        QCOMPARE(m_world->loads(), 1);
        settle();
        QCOMPARE(m_world->loads(), 2);
        QCOMPARE(viewModel().state().loadedValue()->size(), 1U);
    }

    void everySavedCheckInLoadsOnce()
    {
        m_world->center.post(checkInDidSave);
        m_world->center.post(checkInDidSave);
        settle();
        QCOMPARE(m_world->loads(), 2);
    }

    void aCheckInSavedDuringALoadWaitsForItsEnd()
    {
        connect(&viewModel(), &HistoryViewModel::stateChanged, this, [this] {
            if (viewModel().state().isLoading() && m_world->states.size() == 1)
                m_world->center.post(checkInDidSave);
        });
        viewModel().load();
        QCOMPARE(m_world->loads(), 1);
        QVERIFY(viewModel().state().isLoaded());
        settle();
        QCOMPARE(m_world->loads(), 2);
    }

    void otherNewsLoadNothing()
    {
        m_world->center.post(u"com.zantho.quorvel.somethingElse"_s);
        settle();
        QCOMPARE(m_world->loads(), 0);
    }

    void aClosedHistoryLoadsNoMore()
    {
        m_world->center.post(checkInDidSave);
        m_world->viewModel.reset();
        m_world->center.post(checkInDidSave);
        settle();
        QCOMPARE(m_world->loads(), 0);
    }

    void theSummaryCountsVisitsAndDifferentCafes()
    {
        const auto blue = cafe(u"Blue Door"_s);
        const auto sameName = cafe(u"Blue Door"_s);
        m_world->repository.visits = {visit(u"2026-11-16T09:00:00Z"_s, blue),
                                      visit(u"2026-11-18T09:00:00Z"_s, sameName),
                                      visit(u"2026-11-21T09:00:00Z"_s, blue)};
        viewModel().load();
        QVERIFY(viewModel().weeklySummary() == (WeeklySummary{.visits = 3, .cafes = 2}));
    }

    void aVisitWithoutACafeCountsAsAVisitAlone()
    {
        m_world->repository.visits = visits({u"2026-11-21T09:00:00Z"_s, u"2026-11-21T09:00:00Z"_s});
        viewModel().load();
        QVERIFY(viewModel().weeklySummary() == (WeeklySummary{.visits = 2, .cafes = 0}));
    }

    void theWeekIsTheUsers_data()
    {
        QTest::addColumn<QString>("now");
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<QStringList>("inside");
        QTest::addColumn<QStringList>("outside");
        const auto row = [](const char *name, const QString &now, const char *locale,
                            const char *zone, const QStringList &inside,
                            const QStringList &outside) {
            QTest::newRow(name) << now << QString::fromLatin1(locale) << QByteArray(zone) << inside
                                << outside;
        };
        const auto saturday = u"2026-11-21T12:00:00Z"_s;
        row("Vietnam", saturday, "vi_VN", "UTC",
            {u"2026-11-16T00:00:00Z"_s, u"2026-11-22T23:59:59.999Z"_s},
            {u"2026-11-15T23:59:59.999Z"_s, u"2026-11-23T00:00:00Z"_s});
        row("USA", saturday, "en_US", "UTC",
            {u"2026-11-15T00:00:00Z"_s, u"2026-11-21T23:59:59.999Z"_s},
            {u"2026-11-14T23:59:59.999Z"_s, u"2026-11-22T00:00:00Z"_s});
        row("Egypt", saturday, "ar_EG", "UTC",
            {u"2026-11-21T00:00:00Z"_s, u"2026-11-27T23:59:59.999Z"_s},
            {u"2026-11-20T23:59:59.999Z"_s, u"2026-11-28T00:00:00Z"_s});
        row("on a Monday, yesterday is last week", u"2026-11-16T12:00:00Z"_s, "vi_VN", "UTC",
            {u"2026-11-16T00:00:00Z"_s}, {u"2026-11-15T12:00:00Z"_s});
        row("on a Monday in the USA it is not", u"2026-11-16T12:00:00Z"_s, "en_US", "UTC",
            {u"2026-11-16T00:00:00Z"_s, u"2026-11-15T12:00:00Z"_s}, {});
        row("week 1 begins in December", u"2025-01-02T12:00:00Z"_s, "vi_VN", "UTC",
            {u"2024-12-30T00:00:00Z"_s, u"2025-01-05T23:59:59Z"_s},
            {u"2024-12-29T23:59:59Z"_s, u"2025-01-06T00:00:00Z"_s});
        row("seen from December", u"2024-12-31T12:00:00Z"_s, "vi_VN", "UTC",
            {u"2024-12-30T00:00:00Z"_s, u"2025-01-05T23:59:59Z"_s},
            {u"2024-12-29T23:59:59Z"_s, u"2025-01-06T00:00:00Z"_s});
        row("a week of 167 hours", u"2026-03-29T12:00:00Z"_s, "de_DE", "Europe/Berlin",
            {u"2026-03-22T23:00:00Z"_s, u"2026-03-29T21:59:59.999Z"_s},
            {u"2026-03-22T22:59:59.999Z"_s, u"2026-03-29T22:00:00Z"_s});
        row("midnight is skipped", u"2026-03-10T12:00:00Z"_s, "es_CU", "America/Havana",
            {u"2026-03-09T04:00:00Z"_s}, {u"2026-03-09T03:59:59.999Z"_s});
    }

    void theWeekIsTheUsers()
    {
        QFETCH(const QString, now);
        QFETCH(const QString, locale);
        QFETCH(const QByteArray, zone);
        QFETCH(const QStringList, inside);
        QFETCH(const QStringList, outside);
        m_world->clock.instant = instant(now);
        m_world->clock.userLocale = QLocale(locale);
        m_world->clock.timeZone = QTimeZone(zone);
        m_world->repository.visits = visits(inside + outside);
        viewModel().load();
        QCOMPARE(viewModel().weeklySummary().visits, int(inside.size()));
    }

    void theSummaryIsOfTheWeekInWhichItIsAsked()
    {
        m_world->repository.visits = visits({u"2026-11-21T09:00:00Z"_s});
        viewModel().load();
        QCOMPARE(viewModel().weeklySummary().visits, 1);
        m_world->clock.instant = instant(u"2026-11-23T00:00:00Z"_s);
        QCOMPARE(viewModel().weeklySummary().visits, 0);
    }

private:
    [[nodiscard]] HistoryViewModel &viewModel() { return *m_world->viewModel; }

    std::optional<World> m_world;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::HistoryViewModelTest)
#include "HistoryViewModelTest.moc"
