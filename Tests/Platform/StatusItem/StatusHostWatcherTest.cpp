#include "Platform/StatusItem/StatusHostWatcher.h"

#include "Tests/Platform/StatusItem/FakeNotifierWatcher.h"
#include "Tests/Support/Patience.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QIODevice>
#include <QSignalSpy>
#include <QTest>

#include <chrono>

using namespace quorvel;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

using Answer = FakeNotifierWatcher::Answer;

namespace {

constexpr auto hostRegistered = "StatusNotifierHostRegistered"_L1;
constexpr auto hostUnregistered = "StatusNotifierHostUnregistered"_L1;

/// Long enough to answer on a busy machine, and asked again at once.
constexpr StatusHostLimits impatient{
    .reply = 300ms, .hostGrace = 1h, .firstRetry = 1ms, .longestRetry = 1ms};

} // namespace

/// On a private session bus, with no tray manager of the X server.
class StatusHostWatcherTest final : public QObject
{
    Q_OBJECT

private slots:
    void nothingIsDecidedBeforeTheEventLoopTurns()
    {
        FakeNotifierWatcher watcher(Answer::WithHost);
        watcher.appear();
        const StatusHostWatcher hosts;
        QCOMPARE(hosts.facts(), StatusHostFacts());
        QCOMPARE(hosts.chosenHost(), StatusHost::None);
        QVERIFY(!hosts.isHostThere());
    }

    void absentWatcherMeansNoHost()
    {
        const StatusHostWatcher hosts;
        QTRY_COMPARE(hosts.facts().watcher, NotifierWatcher::Absent);
        QCOMPARE(hosts.chosenHost(), StatusHost::None);
        QVERIFY(!hosts.isHostThere());
    }

    void onlyWhatHasChangedIsTold()
    {
        const StatusHostWatcher hosts;
        const QSignalSpy changes(&hosts, &StatusHostWatcher::changed);
        QTRY_COMPARE(hosts.facts().watcher, NotifierWatcher::Absent);
        QCoreApplication::processEvents();
        QCOMPARE(changes.count(), 1);
    }

    void registeredHostIsChosen()
    {
        FakeNotifierWatcher watcher(Answer::WithHost);
        watcher.appear();
        const StatusHostWatcher hosts;
        QTRY_COMPARE(hosts.chosenHost(), StatusHost::Notifier);
        QVERIFY(hosts.isHostThere());
        QCOMPARE(watcher.calls, QStringList{u"Get"_s});
    }

    void hostRegisteredLaterIsChosen()
    {
        FakeNotifierWatcher watcher(Answer::WithoutHost);
        watcher.appear();
        const StatusHostWatcher hosts;
        QTRY_COMPARE(hosts.facts().watcher, NotifierWatcher::WithoutHost);
        QCOMPARE(hosts.chosenHost(), StatusHost::None);

        watcher.answer = Answer::WithHost;
        watcher.announce(hostRegistered);
        QTRY_COMPARE(hosts.chosenHost(), StatusHost::Notifier);
        QVERIFY(hosts.isHostThere());
    }

    void watcherThatAppearsLaterIsAsked()
    {
        FakeNotifierWatcher watcher(Answer::WithHost);
        const StatusHostWatcher hosts;
        QTRY_COMPARE(hosts.facts().watcher, NotifierWatcher::Absent);

        watcher.appear();
        QTRY_COMPARE(hosts.chosenHost(), StatusHost::Notifier);
    }

    void refusedQuestionCountsAsNoHost()
    {
        FakeNotifierWatcher watcher(Answer::Refusal);
        watcher.appear();
        const StatusHostWatcher hosts;
        QTRY_COMPARE(hosts.facts().watcher, NotifierWatcher::WithoutHost);
    }

    void silentWatcherHoldsNobodyUp()
    {
        FakeNotifierWatcher watcher(Answer::Silence);
        watcher.appear();
        const StatusHostWatcher hosts({.reply = 1h});
        QTRY_COMPARE(watcher.calls, QStringList{u"Get"_s});

        int beats = 0;
        QTimer beat;
        beat.callOnTimeout([&] { ++beats; });
        beat.start(1ms);
        QTRY_VERIFY(beats >= 10);
        QCOMPARE(hosts.facts().watcher, NotifierWatcher::Unknown);
        QCOMPARE(hosts.chosenHost(), StatusHost::None);
    }

    void silentWatcherIsAskedAgain()
    {
        FakeNotifierWatcher watcher(Answer::Silence);
        watcher.appear();
        const StatusHostWatcher hosts(impatient);
        QTRY_VERIFY(watcher.calls.size() >= 2);
        QCOMPARE(hosts.facts().watcher, NotifierWatcher::Silent);
        QCOMPARE(hosts.chosenHost(), StatusHost::None);
        QCOMPARE(watcher.calls.count(u"Get"_s), watcher.calls.size());
    }

    void silentWatcherThatWakesUpIsFoundByAskingAgain()
    {
        FakeNotifierWatcher watcher(Answer::Silence);
        watcher.appear();
        const StatusHostWatcher hosts(impatient);
        QTRY_COMPARE(hosts.facts().watcher, NotifierWatcher::Silent);

        watcher.answer = Answer::WithHost;
        QTRY_COMPARE(hosts.chosenHost(), StatusHost::Notifier);
    }

    void silentWatcherThatRestartsIsAskedAtOnce()
    {
        FakeNotifierWatcher hung(Answer::Silence);
        hung.appear();
        const StatusHostWatcher hosts({.reply = 1h});
        QTRY_COMPARE(hung.calls.size(), 1);

        hung.vanish();
        QTRY_COMPARE(hosts.facts().watcher, NotifierWatcher::Absent);
        FakeNotifierWatcher restarted(Answer::WithHost);
        restarted.appear();
        QTRY_COMPARE(hosts.chosenHost(), StatusHost::Notifier);
    }

    void lateAnswerOfAFormerOwnerIsIgnored()
    {
        FakeNotifierWatcher former(Answer::Silence);
        former.appear();
        const StatusHostWatcher hosts({.reply = 1h});
        QTRY_COMPARE(former.calls.size(), 1);

        FakeNotifierWatcher present(Answer::WithoutHost);
        present.appear();
        QTRY_COMPARE(hosts.facts().watcher, NotifierWatcher::WithoutHost);
        former.answerLate(true);
        present.announce(hostRegistered);
        QTRY_COMPARE(present.calls.size(), 2);
        QCOMPARE(hosts.chosenHost(), StatusHost::None);
    }

    void vanishedHostIsThereNoMoreButStaysChosen()
    {
        FakeNotifierWatcher watcher(Answer::WithHost);
        watcher.appear();
        const StatusHostWatcher hosts;
        QTRY_VERIFY(hosts.isHostThere());

        watcher.vanish();
        QTRY_VERIFY(!hosts.isHostThere());
        QCOMPARE(hosts.chosenHost(), StatusHost::Notifier);

        watcher.appear();
        QTRY_VERIFY(hosts.isHostThere());
    }

    void unregisteredHostIsThereNoMore()
    {
        FakeNotifierWatcher watcher(Answer::WithHost);
        watcher.appear();
        const StatusHostWatcher hosts;
        QTRY_VERIFY(hosts.isHostThere());

        watcher.answer = Answer::WithoutHost;
        watcher.announce(hostUnregistered);
        QTRY_VERIFY(!hosts.isHostThere());
    }

    void watcherWithoutHostUsesUpItsGrace()
    {
        FakeNotifierWatcher watcher(Answer::WithoutHost);
        watcher.appear();
        const StatusHostWatcher hosts({.hostGrace = 0ms});
        QTRY_COMPARE(hosts.facts().grace, HostGrace::Over);

        watcher.vanish();
        QTRY_COMPARE(hosts.facts().watcher, NotifierWatcher::Absent);
        QCOMPARE(hosts.facts().grace, HostGrace::Running);
    }

    void graceRunsOnlyWithoutHost()
    {
        FakeNotifierWatcher watcher(Answer::Silence);
        watcher.appear();
        StatusHostLimits limits = impatient;
        limits.hostGrace = 0ms;
        const StatusHostWatcher hosts(limits);
        QTRY_VERIFY(watcher.calls.size() >= 2);
        QCOMPARE(hosts.facts().grace, HostGrace::Running);
    }

    void everyChangeIsTold()
    {
        FakeNotifierWatcher watcher(Answer::WithHost);
        const StatusHostWatcher hosts;
        QTRY_COMPARE(hosts.facts().watcher, NotifierWatcher::Absent);
        bool wasThere = false;
        QList<bool> told;
        connect(&hosts, &StatusHostWatcher::changed, this, [&] {
            if (wasThere != hosts.isHostThere())
                told.append(wasThere = hosts.isHostThere());
        });
        watcher.appear();
        QTRY_COMPARE(told, QList<bool>({true}));
        watcher.vanish();
        QTRY_COMPARE(told, QList<bool>({true, false}));
    }

    void askingStartsNoWatcher()
    {
        QVERIFY(qEnvironmentVariableIsSet("XDG_DATA_HOME"));
        const QDir services(qEnvironmentVariable("XDG_DATA_HOME") + u"/dbus-1/services"_s);
        QVERIFY(services.mkpath(u"."_s));
        QFile service(services.filePath(u"org.kde.StatusNotifierWatcher.service"_s));
        QVERIFY(service.open(QIODevice::WriteOnly));
        service.write("[D-BUS Service]\nName=org.kde.StatusNotifierWatcher\nExec=/bin/false\n");
        service.close();
        QDBusConnectionInterface *bus = QDBusConnection::sessionBus().interface();
        bus->call(u"ReloadConfig"_s);
        const QStringList activatable = bus->activatableServiceNames();
        const StatusHostWatcher hosts;
        QTRY_VERIFY(hosts.facts().watcher != NotifierWatcher::Unknown);
        QVERIFY(service.remove());
        bus->call(u"ReloadConfig"_s);

        QVERIFY(activatable.contains(u"org.kde.StatusNotifierWatcher"_s));
        QCOMPARE(hosts.facts().watcher, NotifierWatcher::Absent);
    }
};

QTEST_MAIN(StatusHostWatcherTest)
#include "StatusHostWatcherTest.moc"
