#include "Features/MenuBar/Loop/LocatedSnapshot.h"
#include "Features/MenuBar/Loop/MenuBarInput.h"
#include "Models/WeatherSnapshot.h"
#include "Platform/Errors/Outcome.h"
#include "Services/Places/FakePlacesService.h"
#include "Tests/Features/MenuBar/Loop/LoopWorld.h"

#include <QTest>

#include <chrono>
#include <optional>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quorvel::tests {

namespace {

using State = LoopWorld::State;
using States = std::vector<State>;

/// The places where a load waits.
enum class Point { Authorization, Position, Search, Weather };

const QList<std::pair<Point, QString>> points{{Point::Authorization, u"authorization"_s},
                                              {Point::Position, u"position"_s},
                                              {Point::Search, u"search"_s},
                                              {Point::Weather, u"weather"_s}};

const QList<std::pair<MenuBarInput, QString>> &inputs()
{
    static const QList<std::pair<MenuBarInput, QString>> all{
        {MenuBarInput::start(), u"start"_s},
        {MenuBarInput::retry(), u"retry"_s},
        {MenuBarInput::cancel(), u"cancel"_s},
        {MenuBarInput::selectCafe(LoopWorld::cafe(u"Picked"_s, 7)), u"selectCafe"_s}};
    return all;
}

bool loads(const MenuBarInput &input)
{
    return input == MenuBarInput::start() || input == MenuBarInput::retry();
}

} // namespace

/// Every input overtakes every load at every place where it waits. The older load writes nothing:
/// not to the state, and not to the cache.
class MenuBarCancellationTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_world.emplace();
        m_cached.reset();
    }

    void anOvertakenLoadWritesNothing_data()
    {
        QTest::addColumn<int>("older");
        QTest::addColumn<int>("newer");
        QTest::addColumn<Point>("point");
        QTest::addColumn<bool>("hasCache");
        for (int older = 0; older < inputs().size(); ++older)
            for (int newer = 0; newer < inputs().size(); ++newer)
                for (const auto &[point, name] : points)
                    for (const bool hasCache : {false, true})
                        // The others end in the turn in which they begin.
                        if (loads(inputs()[older].first))
                            QTest::addRow("%s overtakes %s at its %s, %s",
                                          qPrintable(inputs()[newer].second),
                                          qPrintable(inputs()[older].second), qPrintable(name),
                                          hasCache ? "with a cache" : "without")
                                << older << newer << point << hasCache;
    }

    void anOvertakenLoadWritesNothing()
    {
        QFETCH(const int, older);
        QFETCH(const int, newer);
        QFETCH(const Point, point);
        QFETCH(const bool, hasCache);
        if (hasCache)
            fillStaleCache();
        suspend(inputs()[older].first, point);

        const MenuBarInput input = inputs()[newer].first;
        const State expected = paintOf(input);
        if (loads(input))
            holdAll();
        m_world->send(input);
        QVERIFY(m_world->viewModel->state() == expected);
        QCOMPARE(m_world->viewModel->isLocating(), loads(input));
        static_cast<void>(m_world->newStates());

        release(point, u"Old"_s);
        QVERIFY(m_world->newStates().empty());
        QCOMPARE(m_world->viewModel->isLocating(), loads(input));

        if (loads(input)) {
            finishHeld(point);
            QCOMPARE(m_world->newStates().size(), 1U);
            QCOMPARE(selected(), u"New"_s);
            QVERIFY(!m_world->viewModel->isLocating());
        }
        const auto remembered = loads(input) ? m_world->viewModel->state() : cacheAfter(input);
        nextStartPaints(remembered);
    }

    void aViewModelDestroyedWhileItWaitsWritesNothing_data() { eachPoint(); }

    void aViewModelDestroyedWhileItWaitsWritesNothing()
    {
        QFETCH(const Point, point);
        suspend(MenuBarInput::start(), point);
        static_cast<void>(m_world->newCalls());
        static_cast<void>(m_world->newStates());
        m_world->viewModel.reset();
        release(point, u"Old"_s);
        QVERIFY(m_world->newStates().empty());
        QCOMPARE(m_world->newCalls(), (QList<qsizetype>{0, 0, 0}));
        QVERIFY(m_world->keychain.read.isEmpty());
    }

    void servicesThatEndWhileALoadWaitsEndTheLoad_data() { eachPoint(); }

    void servicesThatEndWhileALoadWaitsEndTheLoad()
    {
        QFETCH(const Point, point);
        suspend(MenuBarInput::start(), point);
        m_world.reset();
        LoopWorld::settle();
    }

    void aViewModelDestroyedBeforeItsTurnDoesNothing()
    {
        m_world->viewModel->send(MenuBarInput::start());
        m_world->viewModel.reset();
        LoopWorld::settle();
        QVERIFY(m_world->location.calls.isEmpty());
    }

private:
    static void eachPoint()
    {
        QTest::addColumn<Point>("point");
        for (const auto &[point, name] : points)
            QTest::newRow(qPrintable(name)) << point;
    }

    void fillStaleCache()
    {
        m_world->willFindAll();
        m_world->send(MenuBarInput::start());
        m_cached = m_world->full();
        m_world->clock.instant += 601s;
    }

    /// Sends an input whose load then waits at this point.
    void suspend(const MenuBarInput &input, Point point)
    {
        if (point == Point::Authorization)
            m_world->location.holdAuthorization();
        else
            m_world->willAuthorize();
        if (point == Point::Position)
            m_world->location.holdLocation();
        else if (point > Point::Position)
            m_world->location.locate(LoopWorld::home());
        if (point == Point::Search)
            m_world->places.calls.willHold();
        else if (point > Point::Search)
            m_world->places.calls.willSucceed({LoopWorld::cafe(u"Old"_s, 1)});
        if (point == Point::Weather)
            m_world->weather.calls.willHold();
        m_world->send(input);
    }

    void holdAll()
    {
        m_world->location.holdAuthorization();
        m_world->location.holdLocation();
        m_world->places.calls.willHold();
        m_world->weather.calls.willHold();
    }

    /// Answers the oldest request at this point. The location's services keep only one waiter, so
    /// there it is the newer one.
    void release(Point point, const QString &cafe)
    {
        switch (point) {
        case Point::Authorization:
            m_world->location.authorizationWaiter.finish(AuthorizationStatus::AuthorizedAlways);
            break;
        case Point::Position:
            m_world->location.locationWaiter.finish(LoopWorld::home());
            break;
        case Point::Search:
            m_world->places.calls.release(
                Outcome<FakePlacesService::Candidates>::success({LoopWorld::cafe(cafe, 1)}));
            break;
        case Point::Weather:
            m_world->weather.calls.release(Outcome<WeatherSnapshot>::success(LoopWorld::sun()));
            break;
        }
        LoopWorld::settle();
    }

    /// Answers all further requests of the newer load after the release at this point.
    void finishHeld(Point released)
    {
        for (const auto &[point, name] : points)
            if (point != Point::Authorization || released != Point::Authorization)
                release(point, u"New"_s);
    }

    /// The state that the newer input shows while it waits.
    [[nodiscard]] State paintOf(const MenuBarInput &newer) const
    {
        const State &shown = m_world->viewModel->state();
        if (newer == MenuBarInput::retry() || (newer == MenuBarInput::start() && !m_cached))
            return State::loading();
        if (newer == MenuBarInput::start())
            return State::loaded(*m_cached);
        if (newer == MenuBarInput::cancel() || !shown.isLoaded())
            return shown;
        auto snapshot = *shown.loadedValue();
        snapshot.selectedCafe = newer.candidate();
        return State::loaded(snapshot);
    }

    /// The state that a later start shows after an input that loads nothing.
    [[nodiscard]] State cacheAfter(const MenuBarInput &newer) const
    {
        const State &shown = m_world->viewModel->state();
        if (newer.kind() == MenuBarInput::Case::SelectCafe && shown.isLoaded())
            return shown;
        return m_cached ? State::loaded(*m_cached) : State::loading();
    }

    void nextStartPaints(const State &expected)
    {
        m_world->location.holdAuthorization();
        m_world->send(MenuBarInput::start());
        QVERIFY(m_world->viewModel->state() == expected);
    }

    [[nodiscard]] QString selected() const
    {
        const auto *snapshot = m_world->viewModel->state().loadedValue();
        return snapshot && snapshot->selectedCafe ? snapshot->selectedCafe->name : QString();
    }

    std::optional<LoopWorld> m_world;
    std::optional<LocatedSnapshot> m_cached;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::MenuBarCancellationTest)
#include "MenuBarCancellationTest.moc"
