#include "Platform/Keychain/SecretService/CallDeadline.h"

#include <QElapsedTimer>
#include <QTest>

namespace quorvel::tests {

using namespace std::chrono_literals;

namespace {

constexpr int longMilliseconds = 20'000;

/// Waits as a synchronous call does; false where nobody ended the wait.
bool isCancelledWithin(GCancellable *cancellable, int milliseconds)
{
    GPollFD descriptor = {};
    if (!g_cancellable_make_pollfd(cancellable, &descriptor))
        return false;
    const bool cancelled = g_poll(&descriptor, 1, milliseconds) == 1;
    g_cancellable_release_fd(cancellable);
    return cancelled;
}

} // namespace

class CallDeadlineTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whoeverWaitsIsWokenAtTheDeadlineAndNotBefore()
    {
        QElapsedTimer timer;
        timer.start();
        const CallDeadline deadline(100ms);
        QVERIFY(isCancelledWithin(deadline.cancellable(), longMilliseconds));
        QVERIFY(timer.elapsed() >= 99);
    }

    void aCallThatIsOverInTimeWaitsForNothing()
    {
        QElapsedTimer timer;
        timer.start();
        GLibObject<GCancellable> kept;
        {
            const CallDeadline deadline(1h);
            kept.reset(G_CANCELLABLE(g_object_ref(deadline.cancellable())));
        }
        QVERIFY(timer.elapsed() < longMilliseconds);
        QVERIFY(!g_cancellable_is_cancelled(kept.get()));
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::CallDeadlineTest)
#include "CallDeadlineTest.moc"
