#include "Platform/SystemEvents/FakeSystemEvents.h"
#include "Tests/Contract/SystemEvents/SystemEventsContract.h"

#include <QTest>

#include <memory>

namespace quorvel::tests {

class FakeSystemEventsContractTest final : public SystemEventsContract
{
    Q_OBJECT

    std::unique_ptr<SystemEvents> make() override
    {
        auto events = std::make_unique<FakeSystemEvents>();
        m_events = events.get();
        return events;
    }

    void takeAway(Returning) override {}
    void bringBack(Returning what) override { m_events->bringBack(what); }

    FakeSystemEvents *m_events = nullptr;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::FakeSystemEventsContractTest)
#include "FakeSystemEventsContractTest.moc"
