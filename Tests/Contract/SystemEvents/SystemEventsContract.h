#pragma once

#include "Platform/SystemEvents/SystemEvents.h"

#include <QList>

#include <memory>

namespace quorvel::tests {

/// The promises of everything that reports the returns of a machine.
class SystemEventsContract : public QObject
{
    Q_OBJECT

protected:
    /// On a machine that has everything.
    [[nodiscard]] virtual std::unique_ptr<SystemEvents> make() = 0;

    /// Makes the machine lose it and get it back. All consequences have happened when this returns.
    virtual void takeAway(Returning what) = 0;
    virtual void bringBack(Returning what) = 0;

private slots:
    void init();
    void cleanup() { m_events.reset(); }

    void eachReturnIsTold_data();
    void eachReturnIsTold();
    void whatGoesIsNotTold_data();
    void whatGoesIsNotTold();
    void whoDoesNotFollowIsToldNothing();
    void whoRestsIsToldNothing();
    void whoFollowsAgainIsToldAgain();
    void whoFollowsTwiceIsToldOnce();

private:
    void loseAndRegain(Returning what);

    std::unique_ptr<SystemEvents> m_events;
    QList<Returning> m_told;
};

} // namespace quorvel::tests
