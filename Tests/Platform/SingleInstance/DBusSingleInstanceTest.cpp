#include "Platform/SingleInstance/DBusSingleInstance.h"

#include "Tests/Support/Patience.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QProcess>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QVariant>
#include <sys/wait.h>

#include <chrono>
#include <csignal>
#include <memory>

using namespace quorvel;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

using Claim = SingleInstance::Claim;

namespace {

const QString peerProgram = QStringLiteral(SINGLE_INSTANCE_PEER);
const QString busName = u"com.zantho.quorvel"_s;
constexpr std::chrono::milliseconds shortLimit = 300ms;

QProcessEnvironment environment()
{
    QProcessEnvironment result = QProcessEnvironment::systemEnvironment();
    result.remove(u"XDG_ACTIVATION_TOKEN"_s);
    result.remove(u"DESKTOP_STARTUP_ID"_s);
    return result;
}

std::unique_ptr<QProcess> startPeer(const QProcessEnvironment &variables = environment(),
                                    const QStringList &arguments = {})
{
    auto peer = std::make_unique<QProcess>();
    peer->setProcessEnvironment(variables);
    peer->start(peerProgram, arguments);
    return peer;
}

/// Returns when all its threads have stopped, which is later than the signal.
void freeze(const QProcess &peer)
{
    const auto id = id_t(peer.processId());
    kill(pid_t(id), SIGSTOP);
    siginfo_t change;
    waitid(P_PID, id, &change, WSTOPPED | WEXITED | WNOWAIT);
}

QByteArray nextLine(QProcess &peer)
{
    while (!peer.canReadLine() && peer.waitForReadyRead()) {
    }
    return peer.readLine().trimmed();
}

/// The output and the end of another start of the program, while this one serves the bus.
QByteArray outcomeOf(QProcess &peer)
{
    QSignalSpy finished(&peer, &QProcess::finished);
    if (peer.state() != QProcess::NotRunning && !finished.wait(tests::patienceMilliseconds))
        return "still running";
    return peer.readAll().trimmed();
}

QDBusMessage call(const QString &member, const QVariantList &arguments)
{
    auto message = QDBusMessage::createMethodCall(busName, u"/com/zantho/quorvel"_s,
                                                  u"org.freedesktop.Application"_s, member);
    message.setArguments(arguments);
    auto outside = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"outside"_s);
    QDBusPendingCallWatcher watcher(outside.asyncCall(message));
    QSignalSpy(&watcher, &QDBusPendingCallWatcher::finished).wait(tests::patienceMilliseconds);
    QDBusConnection::disconnectFromBus(u"outside"_s);
    return watcher.reply();
}

Activation lastActivation(const QSignalSpy &spy)
{
    return spy.isEmpty() ? Activation() : spy.last().first().value<Activation>();
}

bool hasOwner()
{
    return QDBusConnection::sessionBus().interface()->isServiceRegistered(busName);
}

} // namespace

/// On a private bus, with other starts of the program as separate processes.
class DBusSingleInstanceTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qRegisterMetaType<Activation>(); }

    void cleanup() { QVERIFY(!hasOwner()); }

    void theFirstIsPrimary()
    {
        DBusSingleInstance instance(environment());
        QCOMPARE(instance.claim(), Claim::Primary);
        QVERIFY(hasOwner());
    }

    void theEndOfTheFirstFreesTheName()
    {
        {
            DBusSingleInstance instance(environment());
            QCOMPARE(instance.claim(), Claim::Primary);
        }
        DBusSingleInstance instance(environment());
        QCOMPARE(instance.claim(), Claim::Primary);
    }

    void nobodyTakesTheNameAway()
    {
        DBusSingleInstance instance(environment());
        QCOMPARE(instance.claim(), Claim::Primary);
        auto other = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"other"_s);
        const auto reply = other.interface()->registerService(
            busName, QDBusConnectionInterface::ReplaceExistingService);
        QDBusConnection::disconnectFromBus(u"other"_s);
        QCOMPARE(reply.value(), QDBusConnectionInterface::ServiceNotRegistered);
    }

    void theSecondHandsOverAndTheFirstIsActivated()
    {
        DBusSingleInstance instance(environment());
        const QSignalSpy activated(&instance, &SingleInstance::activated);
        QCOMPARE(instance.claim(), Claim::Primary);
        const auto peer = startPeer();
        QCOMPARE(outcomeOf(*peer), QByteArray("HandedOver"));
        QTRY_COMPARE(activated.count(), 1);
        QCOMPARE(lastActivation(activated), Activation());
    }

    void theSecondIsHandedOverToAnotherProcess()
    {
        const auto peer = startPeer();
        QCOMPARE(nextLine(*peer), QByteArray("Primary"));
        {
            DBusSingleInstance instance(environment());
            QCOMPARE(instance.claim(), Claim::HandedOver);
        }
        QCOMPARE(nextLine(*peer), QByteArray("activated"));
        QVERIFY(hasOwner());
        end(*peer);
    }

    void theTokensOfTheSecondStartReachTheFirst_data()
    {
        QTest::addColumn<QString>("token");
        QTest::addColumn<QString>("startupId");
        QTest::newRow("both") << u"token-1"_s << u"startup_TIME2"_s;
        QTest::newRow("Wayland") << u"token-1"_s << QString();
        QTest::newRow("X11") << QString() << u"startup_TIME2"_s;
    }

    void theTokensOfTheSecondStartReachTheFirst()
    {
        QFETCH(const QString, token);
        QFETCH(const QString, startupId);
        DBusSingleInstance instance(environment());
        const QSignalSpy activated(&instance, &SingleInstance::activated);
        QCOMPARE(instance.claim(), Claim::Primary);

        QProcessEnvironment variables = environment();
        variables.insert(u"XDG_ACTIVATION_TOKEN"_s, token);
        variables.insert(u"DESKTOP_STARTUP_ID"_s, startupId);
        const auto peer = startPeer(variables);
        QCOMPARE(outcomeOf(*peer), QByteArray("HandedOver"));
        QTRY_COMPARE(activated.count(), 1);
        QCOMPARE(lastActivation(activated), (Activation{token, startupId}));
    }

    void theDesktopActivatesWithItsOwnData()
    {
        DBusSingleInstance instance(environment());
        const QSignalSpy activated(&instance, &SingleInstance::activated);
        QCOMPARE(instance.claim(), Claim::Primary);

        const QDBusMessage reply =
            call(u"Activate"_s, {QVariantMap{{u"activation-token"_s, u"a"_s},
                                             {u"desktop-startup-id"_s, u"b"_s},
                                             {u"something-new"_s, 3}}});
        QCOMPARE(reply.type(), QDBusMessage::ReplyMessage);
        QTRY_COMPARE(activated.count(), 1);
        QCOMPARE(lastActivation(activated), (Activation{u"a"_s, u"b"_s}));
    }

    void whoAsksIsAnsweredBeforeAnythingOpens()
    {
        DBusSingleInstance instance(environment());
        QCOMPARE(instance.claim(), Claim::Primary);
        const auto peer = startPeer();
        bool isAnswered = false;
        // Like a window that opens slowly and blocks everything else.
        connect(&instance, &SingleInstance::activated, &instance,
                [&] { isAnswered = peer->bytesAvailable() > 0 || peer->waitForReadyRead(); });
        QCOMPARE(outcomeOf(*peer), QByteArray("HandedOver"));
        QTRY_VERIFY(isAnswered);
    }

    void theDesktopMayPickAnAction_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<Request>("request");
        QTest::newRow("check-in") << u"check-in"_s << Request::Panel;
        QTest::newRow("history") << u"history"_s << Request::History;
        QTest::newRow("diagnostics") << u"diagnostics"_s << Request::Diagnostics;
    }

    void theDesktopMayPickAnAction()
    {
        QFETCH(const QString, action);
        QFETCH(const Request, request);
        DBusSingleInstance instance(environment());
        const QSignalSpy activated(&instance, &SingleInstance::activated);
        QCOMPARE(instance.claim(), Claim::Primary);
        const QDBusMessage reply =
            call(u"ActivateAction"_s,
                 {action, QVariantList(), QVariantMap{{u"activation-token"_s, u"a"_s}}});
        QCOMPARE(reply.type(), QDBusMessage::ReplyMessage);
        QTRY_COMPARE(activated.count(), 1);
        QCOMPARE(lastActivation(activated), (Activation{u"a"_s, {}, request}));
    }

    void aSecondStartHandsOverWhatItWants_data()
    {
        QTest::addColumn<Request>("request");
        QTest::addColumn<QByteArray>("heard");
        QTest::newRow("panel") << Request::Panel << QByteArray("activated");
        QTest::newRow("history") << Request::History << QByteArray("activated for the history");
        QTest::newRow("diagnostics")
            << Request::Diagnostics << QByteArray("activated for diagnostics");
    }

    void aSecondStartHandsOverWhatItWants()
    {
        QFETCH(const Request, request);
        const auto peer = startPeer();
        QCOMPARE(nextLine(*peer), QByteArray("Primary"));
        {
            DBusSingleInstance instance(environment(), 5s, request);
            QCOMPARE(instance.claim(), Claim::HandedOver);
        }
        QTEST(nextLine(*peer), "heard");
        end(*peer);
    }

    void aSecondStartThatWantsNothingLeavesTheFirstAlone()
    {
        DBusSingleInstance first(environment());
        const QSignalSpy activated(&first, &SingleInstance::activated);
        QCOMPARE(first.claim(), Claim::Primary);
        const auto peer = startPeer(environment(), {u"nothing"_s});
        QCOMPARE(outcomeOf(*peer), QByteArray("HandedOver"));
        QCOMPARE(activated.count(), 0);
    }

    /// Like a start by the bus, which has no request to hand over.
    void aFirstStartThatWantsNothingIsReachable()
    {
        const auto peer = startPeer(environment(), {u"nothing"_s});
        QCOMPARE(nextLine(*peer), QByteArray("Primary"));
        {
            DBusSingleInstance instance(environment());
            QCOMPARE(instance.claim(), Claim::HandedOver);
        }
        QCOMPARE(nextLine(*peer), QByteArray("activated"));
        end(*peer);
    }

    void filesAndActionsAreRefused_data()
    {
        QTest::addColumn<QString>("member");
        QTest::addColumn<QVariantList>("arguments");
        QTest::addColumn<QString>("error");
        QTest::addColumn<QString>("reason");
        QTest::newRow("files") << u"Open"_s
                               << QVariantList{QStringList{u"file:///a"_s}, QVariantMap()}
                               << u"org.freedesktop.DBus.Error.NotSupported"_s
                               << u"Quorvel opens no files."_s;
        QTest::newRow("actions") << u"ActivateAction"_s
                                 << QVariantList{u"dance"_s, QVariantList(), QVariantMap()}
                                 << u"org.freedesktop.DBus.Error.InvalidArgs"_s
                                 << u"Quorvel has no action “dance”."_s;
    }

    void filesAndActionsAreRefused()
    {
        QFETCH(const QString, member);
        QFETCH(const QVariantList, arguments);
        DBusSingleInstance instance(environment());
        const QSignalSpy activated(&instance, &SingleInstance::activated);
        QCOMPARE(instance.claim(), Claim::Primary);

        const QDBusMessage reply = call(member, arguments);
        QTEST(reply.errorName(), "error");
        QTEST(reply.errorMessage(), "reason");
        QCOMPARE(activated.count(), 0);
    }

    void theInterfaceIsThatOfADesktopApplication()
    {
        DBusSingleInstance instance(environment());
        QCOMPARE(instance.claim(), Claim::Primary);
        auto message = QDBusMessage::createMethodCall(busName, u"/com/zantho/quorvel"_s,
                                                      u"org.freedesktop.DBus.Introspectable"_s,
                                                      u"Introspect"_s);
        const QString xml =
            QDBusConnection::sessionBus().call(message).arguments().value(0).toString();
        const qsizetype begin = xml.indexOf(u"<interface name=\"org.freedesktop.Application\">"_s);
        const QString own = xml.sliced(begin, xml.indexOf(u"</interface>"_s, begin) - begin);
        QCOMPARE(own.count(u"<method "_s), 3);
        QCOMPARE(own.count(u"<signal "_s), 0);
        QStringList types;
        static const QRegularExpression argument(u"<arg [^>]*type=\"([^\"]+)\""_s);
        for (const auto &match : argument.globalMatch(own))
            types.append(match.captured(1));
        QCOMPARE(types.join(u' '), u"a{sv} as a{sv} s av a{sv}"_s);
    }

    void aFirstThatHangsIsUnreachableWithinTheLimit()
    {
        const auto peer = startPeer();
        QCOMPARE(nextLine(*peer), QByteArray("Primary"));
        freeze(*peer);

        // A caller without its own limit waits longer.
        const QDBusPendingCall asked =
            QDBusConnection::sessionBus().asyncCall(QDBusMessage::createMethodCall(
                busName, u"/"_s, u"org.freedesktop.DBus.Peer"_s, u"GetMachineId"_s));
        {
            DBusSingleInstance instance(environment(), shortLimit);
            QCOMPARE(instance.claim(), Claim::Unreachable);
        }
        QVERIFY(!asked.isFinished());

        QCOMPARE(kill(pid_t(peer->processId()), SIGCONT), 0);
        end(*peer);
    }

    void theLimitIsFiveSeconds() { QCOMPARE(DBusSingleInstance::answerLimit, 5s); }

    void whoeverGaveUpDoesNotInheritTheName()
    {
        const auto peer = startPeer();
        QCOMPARE(nextLine(*peer), QByteArray("Primary"));
        freeze(*peer);
        DBusSingleInstance instance(environment(), shortLimit);
        QCOMPARE(instance.claim(), Claim::Unreachable);
        kill(*peer);
        QVERIFY(!hasOwner());
    }

    void aFirstThatDiesLeavesTheNameFree()
    {
        const auto peer = startPeer();
        QCOMPARE(nextLine(*peer), QByteArray("Primary"));
        kill(*peer);
        DBusSingleInstance instance(environment());
        QCOMPARE(instance.claim(), Claim::Primary);
    }

    void aFirstThatDiesWhileItIsAskedMakesTheSecondPrimary()
    {
        const auto peer = startPeer();
        QCOMPARE(nextLine(*peer), QByteArray("Primary"));
        freeze(*peer);
        QProcess killer;
        killer.start(u"/bin/sh"_s, {u"-c"_s, u"sleep 0.2; kill -KILL %1"_s.arg(peer->processId())});
        QVERIFY(killer.waitForStarted());

        DBusSingleInstance instance(environment(), 20s);
        QCOMPARE(instance.claim(), Claim::Primary);
        QVERIFY(killer.waitForFinished());
        QVERIFY(peer->state() == QProcess::NotRunning || peer->waitForFinished());
    }

    void withoutABusTheProgramRunsUnguarded()
    {
        DBusSingleInstance instance{QProcessEnvironment()};
        QCOMPARE(instance.claim(), Claim::NoBus);
    }

    void aBusThatIsGoneCountsAsNone()
    {
        QProcessEnvironment variables = environment();
        variables.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, u"unix:path=/nowhere/bus"_s);
        const auto peer = startPeer(variables);
        QCOMPARE(outcomeOf(*peer), QByteArray("NoBus"));
    }

private:
    static void end(QProcess &peer)
    {
        peer.closeWriteChannel();
        QVERIFY(peer.waitForFinished());
    }

    static void kill(QProcess &peer)
    {
        peer.kill();
        QVERIFY(peer.waitForFinished());
        QTRY_VERIFY(!hasOwner());
    }

    static int kill(pid_t process, int signal) { return ::kill(process, signal); }
};

QTEST_GUILESS_MAIN(DBusSingleInstanceTest)
#include "DBusSingleInstanceTest.moc"
