#include "Platform/StatusItem/StatusHostGate.h"

#include <QTest>

#include <chrono>
#include <limits>

using namespace quorvel;
using namespace std::chrono_literals;

Q_DECLARE_METATYPE(quorvel::StatusHost)
Q_DECLARE_METATYPE(quorvel::StatusHostFacts)

class StatusHostGateTest final : public QObject
{
    Q_OBJECT

private slots:
    void everyStateHasItsDecision_data()
    {
        QTest::addColumn<StatusHostFacts>("facts");
        QTest::addColumn<StatusHost>("decision");

        const auto row = [](const char *name, NotifierWatcher watcher, bool hasXEmbedManager,
                            HostGrace grace, StatusHost decision) {
            QTest::newRow(name) << StatusHostFacts{.watcher = watcher,
                                                   .hasXEmbedManager = hasXEmbedManager,
                                                   .grace = grace}
                                << decision;
        };
        using enum NotifierWatcher;
        using enum HostGrace;
        constexpr auto wait = StatusHost::None;
        row("not known yet", Unknown, false, Running, wait);
        row("not known yet, grace over", Unknown, false, Over, wait);
        row("not known yet, manager", Unknown, true, Running, wait);
        row("not known yet, manager, grace over", Unknown, true, Over, wait);
        row("nobody", Absent, false, Running, wait);
        row("nobody, grace over", Absent, false, Over, wait);
        row("manager only", Absent, true, Running, StatusHost::XEmbed);
        row("manager only, grace over", Absent, true, Over, StatusHost::XEmbed);
        row("silent", Silent, false, Running, wait);
        row("silent, grace over", Silent, false, Over, wait);
        row("silent, manager", Silent, true, Running, wait);
        row("silent, manager, grace over", Silent, true, Over, wait);
        row("without host", WithoutHost, false, Running, wait);
        row("without host, grace over", WithoutHost, false, Over, wait);
        row("without host, manager", WithoutHost, true, Running, wait);
        row("without host, manager, grace over", WithoutHost, true, Over, StatusHost::XEmbed);
        row("with host", WithHost, false, Running, StatusHost::Notifier);
        row("with host, grace over", WithHost, false, Over, StatusHost::Notifier);
        row("with host, manager", WithHost, true, Running, StatusHost::Notifier);
        row("with host, manager, grace over", WithHost, true, Over, StatusHost::Notifier);
    }

    void everyStateHasItsDecision()
    {
        QFETCH(const StatusHostFacts, facts);
        QTEST(StatusHostGate::decide(facts), "decision");
    }

    void notifierHostIsThereOnlyWhileRegistered()
    {
        using enum NotifierWatcher;
        for (const auto watcher : {Unknown, Absent, Silent, WithoutHost, WithHost}) {
            const StatusHostFacts facts{.watcher = watcher, .hasXEmbedManager = true};
            QCOMPARE(StatusHostGate::isThere(StatusHost::Notifier, facts), watcher == WithHost);
        }
    }

    void xEmbedHostIsThereOnlyWhileManaged()
    {
        StatusHostFacts facts{.watcher = NotifierWatcher::WithHost, .hasXEmbedManager = false};
        QVERIFY(!StatusHostGate::isThere(StatusHost::XEmbed, facts));
        facts = {.watcher = NotifierWatcher::Silent, .hasXEmbedManager = true};
        QVERIFY(StatusHostGate::isThere(StatusHost::XEmbed, facts));
    }

    void noHostIsNeverThere()
    {
        const StatusHostFacts facts{.watcher = NotifierWatcher::WithHost, .hasXEmbedManager = true};
        QVERIFY(!StatusHostGate::isThere(StatusHost::None, facts));
    }

    void silentWatcherIsAskedEverLessOften()
    {
        const StatusHostLimits limits{.firstRetry = 2s, .longestRetry = 30s};
        const QList<std::chrono::seconds> delays{2s, 4s, 8s, 16s, 30s, 30s};
        for (int unanswered = 1; unanswered <= delays.size(); ++unanswered)
            QVERIFY(StatusHostGate::retryDelay(limits, unanswered) == delays[unanswered - 1]);
        QVERIFY(StatusHostGate::retryDelay(limits, std::numeric_limits<int>::max()) == 30s);
    }

    void longestRetryBoundsTheFirstToo()
    {
        const StatusHostLimits limits{.firstRetry = 2s, .longestRetry = 1s};
        QVERIFY(StatusHostGate::retryDelay(limits, 1) == 1s);
    }

    void limitsAreTheOnesWeMeanToKeep()
    {
        const StatusHostLimits limits;
        QVERIFY(limits.reply == 2s);
        QVERIFY(limits.hostGrace == 3s);
        QVERIFY(limits.firstRetry == 2s);
        QVERIFY(limits.longestRetry == 30s);
    }
};

QTEST_GUILESS_MAIN(StatusHostGateTest)
#include "StatusHostGateTest.moc"
