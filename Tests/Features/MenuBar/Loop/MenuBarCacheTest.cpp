#include "Core/Support/AppError.h"
#include "Features/MenuBar/Loop/MenuBarViewModel.h"
#include "Platform/Geodesy/DistanceMeters.h"
#include "Tests/Features/MenuBar/Loop/LoopWorld.h"

#include <QTest>

#include <chrono>
#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quorvel::tests {

namespace {

using Calls = QList<qsizetype>;

const Calls positionOnly{1, 0, 0};
const Calls all{1, 1, 1};

Location at(double latitude)
{
    Location here = LoopWorld::home();
    here.latitude = latitude;
    return here;
}

double metersBetween(double south, double north)
{
    const double longitude = LoopWorld::home().longitude;
    return distanceMeters({south, longitude}, {north, longitude});
}

struct Latitudes
{
    double first;
    double second;
};

/// The second is the northernmost that is no more than 100 m from the first.
Latitudes hundredMetersFrom(double first)
{
    double near = first;
    double far = first + 200 / LoopWorld::metersPerDegree;
    while (std::nextafter(near, far) < far) {
        const double middle = (near + far) / 2;
        (metersBetween(first, middle) <= 100 ? near : far) = middle;
    }
    return {first, near};
}

/// Distances come in steps that are larger than those of a number: only some pairs are 100 m apart
/// to the last bit.
Latitudes exactlyHundredMetersApart()
{
    constexpr int tries = 10'000;
    constexpr double step = 1e-6;
    for (int index = 0; index < tries; ++index) {
        const Latitudes found = hundredMetersFrom(index * step);
        if (metersBetween(found.first, found.second) == 100)
            return found;
    }
    qFatal("no two places are exactly 100 m apart");
}

} // namespace

/// When the loop shows what it found last instead of looking again.
class MenuBarCacheTest final : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.emplace(); }

    void exactlyAHundredMetersAwayTheCacheIsReused()
    {
        const auto [first, second] = exactlyHundredMetersApart();
        startAt(first);
        QCOMPARE(m_world->newCalls(), all);
        startAt(second);
        QCOMPARE(m_world->newCalls(), positionOnly);
    }

    void theNextPlaceBeyondAHundredMetersLoadsAfresh()
    {
        const auto [first, second] = exactlyHundredMetersApart();
        startAt(first);
        QCOMPARE(m_world->newCalls(), all);
        startAt(std::nextafter(second, 1));
        QCOMPARE(m_world->newCalls(), all);
    }

    void aFallbackDoesNotRenewTheTimeOfTheCache_data() { addFallbacks(); }

    void aFallbackDoesNotRenewTheTimeOfTheCache()
    {
        startAt(0);
        QCOMPARE(m_world->newCalls(), all);
        m_world->clock.instant += 599s;
        fallBack();
        m_world->clock.instant += 2s;
        m_world->willFindAll();
        m_world->send(MenuBarInput::start());
        QCOMPARE(m_world->newCalls(), all);
    }

    void aFallbackDoesNotMoveThePlaceOfTheCache_data() { addFallbacks(); }

    void aFallbackDoesNotMoveThePlaceOfTheCache()
    {
        startAt(0);
        QCOMPARE(m_world->newCalls(), all);
        fallBack();
        m_world->willLocate();
        m_world->send(MenuBarInput::start());
        QCOMPARE(m_world->newCalls(), positionOnly);
        QVERIFY(*m_world->viewModel->state().loadedValue() == m_world->full());
        m_world->willFindAll(metersAway);
        m_world->send(MenuBarInput::start());
        QCOMPARE(m_world->newCalls(), all);
    }

private:
    static constexpr double metersAway = 150;

    static void addFallbacks()
    {
        QTest::addColumn<QString>("mishap");
        for (const auto &mishap : {u"no fix"_s, u"no search"_s, u"empty"_s})
            QTest::newRow(qPrintable(mishap)) << mishap;
    }

    void startAt(double latitude)
    {
        m_world->willAuthorize();
        m_world->location.locate(at(latitude));
        m_world->places.calls.willSucceed(LoopWorld::found());
        m_world->weather.calls.willSucceed(LoopWorld::sun());
        m_world->send(MenuBarInput::start());
    }

    /// A retry from elsewhere that comes to nothing.
    void fallBack()
    {
        QFETCH(const QString, mishap);
        if (mishap == u"no fix"_s) {
            m_world->willAuthorize();
            m_world->location.refuseLocation(AppError::locationFailed(mishap));
        } else {
            m_world->willLocate(metersAway);
        }
        if (mishap == u"no search"_s)
            m_world->places.calls.willFail(AppError::network(mishap));
        else if (mishap == u"empty"_s)
            m_world->places.calls.willSucceed({});
        m_world->send(MenuBarInput::retry());
        QVERIFY(*m_world->viewModel->state().loadedValue() == m_world->degraded());
        static_cast<void>(m_world->newCalls());
    }

    std::optional<LoopWorld> m_world;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::MenuBarCacheTest)
#include "MenuBarCacheTest.moc"
