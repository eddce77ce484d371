#include "Tests/Contract/SystemEvents/SystemEventsContract.h"

#include <QTest>

namespace quorvel::tests {

namespace {

void addReturns()
{
    QTest::addColumn<Returning>("what");
    QTest::newRow("network") << Returning::Network;
    QTest::newRow("radio") << Returning::Radio;
    QTest::newRow("machine") << Returning::Machine;
}

} // namespace

void SystemEventsContract::init()
{
    m_told.clear();
    m_events = make();
    connect(m_events.get(), &SystemEvents::cameBack, this,
            [this](Returning what) { m_told.append(what); });
}

void SystemEventsContract::eachReturnIsTold_data()
{
    addReturns();
}

void SystemEventsContract::eachReturnIsTold()
{
    QFETCH(Returning, what);
    m_events->follow();
    loseAndRegain(what);
    QCOMPARE(m_told, QList<Returning>{what});
}

void SystemEventsContract::whatGoesIsNotTold_data()
{
    addReturns();
}

void SystemEventsContract::whatGoesIsNotTold()
{
    QFETCH(Returning, what);
    m_events->follow();
    takeAway(what);
    QCOMPARE(m_told, QList<Returning>());
}

void SystemEventsContract::whoDoesNotFollowIsToldNothing()
{
    loseAndRegain(Returning::Network);
    loseAndRegain(Returning::Machine);
    QCOMPARE(m_told, QList<Returning>());
}

void SystemEventsContract::whoRestsIsToldNothing()
{
    m_events->follow();
    m_events->rest();
    m_events->rest();
    loseAndRegain(Returning::Network);
    loseAndRegain(Returning::Machine);
    QCOMPARE(m_told, QList<Returning>());
}

void SystemEventsContract::whoFollowsAgainIsToldAgain()
{
    m_events->follow();
    m_events->rest();
    m_events->follow();
    loseAndRegain(Returning::Network);
    loseAndRegain(Returning::Machine);
    QCOMPARE(m_told, (QList<Returning>{Returning::Network, Returning::Machine}));
}

void SystemEventsContract::whoFollowsTwiceIsToldOnce()
{
    m_events->follow();
    m_events->follow();
    loseAndRegain(Returning::Machine);
    QCOMPARE(m_told, QList<Returning>{Returning::Machine});
}

void SystemEventsContract::loseAndRegain(Returning what)
{
    takeAway(what);
    bringBack(what);
}

} // namespace quorvel::tests
