#include "Platform/Keychain/SecretService/CallDeadline.h"

#include "Tests/Support/Patience.h"

#include <QTest>

#include <chrono>

namespace quorvel::tests {

using namespace std::chrono_literals;

namespace {

/// Waits like a synchronous call. Returns false if nobody ends the wait.
bool isCancelled(GCancellable *cancellable)
{
    GPollFD descriptor = {};
    if (!g_cancellable_make_pollfd(cancellable, &descriptor))
        return false;
    const bool cancelled = g_poll(&descriptor, 1, patienceMilliseconds) == 1;
    g_cancellable_release_fd(cancellable);
    return cancelled;
}

} // namespace

class CallDeadlineTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whoeverWaitsIsWokenAtItsDeadlineAndNotBefore()
    {
        const CallDeadline late(1h);
        const CallDeadline early(100ms);
        QVERIFY(isCancelled(early.cancellable()));
        QVERIFY(!g_cancellable_is_cancelled(late.cancellable()));
    }

    void aCallThatIsOverInTimeWaitsForNothing()
    {
        GLibObject<GCancellable> kept;
        {
            const CallDeadline deadline(1h);
            kept.reset(G_CANCELLABLE(g_object_ref(deadline.cancellable())));
        }
        QVERIFY(!g_cancellable_is_cancelled(kept.get()));
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::CallDeadlineTest)
#include "CallDeadlineTest.moc"
