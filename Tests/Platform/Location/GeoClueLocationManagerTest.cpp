#include "Platform/Location/GeoClueLocationManager.h"

#include "Platform/Bus/SystemBus.h"
#include "Platform/Location/Location.h"
#include "Tests/Support/Patience.h"
#include "Tests/World/Daemons/GeoClueWorld.h"

#include <QSignalSpy>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quorvel::tests {

namespace {

/// Short, but long enough for a busy machine.
const GeoClueLocationManager::Limits shortLimits{
    .request = {.client = 4s, .property = 4s, .start = 4s, .fix = 4s}, .sameFailure = 60s};
const GeoClueLocationManager::Limits patientLimits{
    .request = {.client = 1min, .property = 1min, .start = 1min, .fix = 1min}, .sameFailure = 0ms};

/// A manager whose signals are recorded in order, each with the status at that time.
class Recorded final
{
public:
    explicit Recorded(const GeoClueLocationManager::Limits &limits)
        : manager(SystemBus::connection(), limits)
    {
        const auto note = [this](const QString &event) { events.append(event); };
        QObject::connect(&manager, &LocationManager::authorizationChanged, &manager, [this, note] {
            note(u"status %1"_s.arg(int(manager.authorizationStatus())));
        });
        QObject::connect(&manager, &LocationManager::locationsUpdated, &manager,
                         [this, note](const QList<Location> &found) {
                             locations = found;
                             note(u"located"_s);
                         });
        QObject::connect(&manager, &LocationManager::failed, &manager,
                         [this, note](const QString &description) {
                             failure = description;
                             note(u"failed"_s);
                         });
    }

    [[nodiscard]] QStringList eventsOf(void (LocationManager::*request)(), int count = 1)
    {
        events.clear();
        (manager.*request)();
        if (!events.isEmpty())
            return {u"answered before the call returned"_s};
        static_cast<void>(comes([&] { return events.size() >= count; }));
        return events;
    }

    GeoClueLocationManager manager;
    QStringList events;
    QList<Location> locations;
    QString failure;
};

constexpr auto permission = &LocationManager::requestWhenInUseAuthorization;
constexpr auto position = &LocationManager::requestLocation;

int statusOf(const Recorded &recorded)
{
    return int(recorded.manager.authorizationStatus());
}

} // namespace

class GeoClueLocationManagerTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCOMPARE(m_world.start(), QString());
        QVERIFY(SystemBus::connection().isConnected());
    }

    void init() { QVERIFY(m_world.tell("mend")); }

    void theStatusIsUndeterminedUntilAStartWasAnswered()
    {
        Recorded recorded(patientLimits);
        QCOMPARE(statusOf(recorded), 0);
        QCOMPARE(recorded.eventsOf(permission), QStringList(u"status 3"_s));
        QCOMPARE(statusOf(recorded), 3);
    }

    void aFixIsWhereTheEndpointSays()
    {
        Recorded recorded(patientLimits);
        QCOMPARE(recorded.eventsOf(position, 2), QStringList({u"status 3"_s, u"located"_s}));
        QCOMPARE(recorded.locations.size(), 1);
        const Location fix = recorded.locations.last();
        QCOMPARE(fix.latitude, 10.7769);
        QCOMPARE(fix.longitude, 106.7009);
        QCOMPARE(fix.accuracyMeters, 25.0);
        const auto age = std::chrono::system_clock::now() - fix.timestamp;
        QVERIFY(age > -1min && age < 10min);
    }

    void theFixComesAfterThePermissionWasAskedFor()
    {
        Recorded recorded(patientLimits);
        QCOMPARE(recorded.eventsOf(permission), QStringList(u"status 3"_s));
        QCOMPARE(recorded.eventsOf(position), QStringList(u"located"_s));
    }

    void everyFurtherRequestHasItsFix()
    {
        Recorded recorded(patientLimits);
        QCOMPARE(recorded.eventsOf(position, 2), QStringList({u"status 3"_s, u"located"_s}));
        for (int count = 0; count < 3; ++count)
            QCOMPARE(recorded.eventsOf(position), QStringList(u"located"_s));
    }

    void aRequestReplacesTheOneBeforeIt()
    {
        Recorded recorded(patientLimits);
        recorded.manager.requestLocation();
        QCOMPARE(recorded.eventsOf(position, 2), QStringList({u"status 3"_s, u"located"_s}));
        QCOMPARE(recorded.eventsOf(position), QStringList(u"located"_s));
    }

    void twoManagersDoNotDisturbEachOther()
    {
        Recorded one(patientLimits);
        Recorded other(patientLimits);
        one.manager.requestLocation();
        other.manager.requestLocation();
        QTRY_COMPARE(one.events, QStringList({u"status 3"_s, u"located"_s}));
        QTRY_COMPARE(other.events, QStringList({u"status 3"_s, u"located"_s}));
    }

    void aManagerDestroyedInMidCallDoesNoHarm()
    {
        {
            Recorded recorded(patientLimits);
            recorded.manager.requestLocation();
        }
        Recorded recorded(patientLimits);
        QCOMPARE(recorded.eventsOf(position, 2), QStringList({u"status 3"_s, u"located"_s}));
    }

    void aDenialIsToldAndLiftedAtTheNextRequest()
    {
        Recorded recorded(patientLimits);
        QVERIFY(m_world.tell("set_agent_level 0"));
        QCOMPARE(recorded.eventsOf(permission), QStringList(u"status 2"_s));
        QCOMPARE(statusOf(recorded), 0);
        QCOMPARE(recorded.eventsOf(permission), QStringList(u"status 2"_s));
        QVERIFY(m_world.tell("set_agent_level 8"));
        QCOMPARE(recorded.eventsOf(permission), QStringList(u"status 3"_s));
        QCOMPARE(recorded.eventsOf(position), QStringList(u"located"_s));
    }

    void aPermissionWithdrawnLaterFailsThePositionAndIsAskedForAnew()
    {
        Recorded recorded(patientLimits);
        QCOMPARE(recorded.eventsOf(permission), QStringList(u"status 3"_s));
        QVERIFY(m_world.tell("set_agent_level 0"));
        QCOMPARE(recorded.eventsOf(position, 2), QStringList({u"status 2"_s, u"failed"_s}));
        QVERIFY2(recorded.failure.contains(u"disabled"_s), qPrintable(recorded.failure));
        QCOMPARE(statusOf(recorded), 0);
    }

    void aPermissionWithdrawnInMidCallEndsIt()
    {
        Recorded recorded(patientLimits);
        QVERIFY(m_world.tell("hang"));
        QVERIFY(restartDaemon());
        recorded.manager.requestLocation();
        QVERIFY(m_world.tell("await_request"));
        QVERIFY(m_world.tell("set_agent_level 0"));
        QTRY_COMPARE(recorded.events, QStringList({u"status 2"_s, u"failed"_s}));
    }

    void aRefusalByConfigurationIsTheRestrictedStatus()
    {
        Recorded recorded(patientLimits);
        QVERIFY(m_world.tell("disallow"));
        QCOMPARE(recorded.eventsOf(permission), QStringList(u"status 1"_s));
        QVERIFY(m_world.tell("allow"));
        QCOMPARE(recorded.eventsOf(permission), QStringList(u"status 3"_s));
    }

    void anAbsentDaemonFailsThePositionButDeniesNothing()
    {
        QVERIFY(m_world.tell("stop_daemon"));
        Recorded recorded(shortLimits);
        QCOMPARE(recorded.eventsOf(permission), QStringList(u"status 3"_s));
        QCOMPARE(recorded.eventsOf(position), QStringList(u"failed"_s));
        QVERIFY2(recorded.failure.contains(u"GeoClue2"_s), qPrintable(recorded.failure));
        QCOMPARE(statusOf(recorded), 3);
        QVERIFY(m_world.tell("start_daemon"));
        QCOMPARE(recorded.eventsOf(position), QStringList(u"located"_s));
    }

    void anAbsentAgentFailsThePositionButDeniesNothing()
    {
        QVERIFY(m_world.tell("stop_agent"));
        QVERIFY(restartDaemon());
        Recorded recorded(shortLimits);
        QCOMPARE(recorded.eventsOf(position), QStringList(u"failed"_s));
        QCOMPARE(recorded.failure, u"The location service did not answer."_s);
        QCOMPARE(recorded.eventsOf(permission), QStringList(u"status 3"_s));
    }

    void anAgentThatComesLateIsWaitedFor()
    {
        QVERIFY(m_world.tell("stop_agent"));
        QVERIFY(restartDaemon());
        Recorded recorded(patientLimits);
        recorded.manager.requestLocation();
        QVERIFY(m_world.tell("start_agent"));
        QTRY_COMPARE(recorded.events, QStringList({u"status 3"_s, u"located"_s}));
    }

    void nothingIsLeftInTheDaemon()
    {
        Recorded recorded(patientLimits);
        QCOMPARE(recorded.eventsOf(permission), QStringList(u"status 3"_s));
        QCOMPARE(recorded.eventsOf(position), QStringList(u"located"_s));
        QVERIFY(m_world.tell("expect_no_clients"));
    }

    void theFailureOfAnAuthorizationIsNotWaitedForTwice()
    {
        QVERIFY(m_world.tell("stop_agent"));
        QVERIFY(restartDaemon());
        Recorded recorded(shortLimits);
        QCOMPARE(recorded.eventsOf(permission), QStringList(u"status 3"_s));
        QVERIFY(m_world.tell("start_agent"));
        QCOMPARE(recorded.eventsOf(position), QStringList(u"failed"_s));
        QCOMPARE(recorded.failure, u"The location service did not answer."_s);
        QCOMPARE(recorded.eventsOf(position), QStringList(u"located"_s));
    }

    void aDaemonThatDiesInMidCallFailsThePosition()
    {
        Recorded recorded(patientLimits);
        QVERIFY(m_world.tell("hang"));
        QVERIFY(restartDaemon());
        recorded.manager.requestLocation();
        QVERIFY(m_world.tell("await_request"));
        QVERIFY(m_world.tell("kill_daemon"));
        QTRY_COMPARE(recorded.events, QStringList(u"failed"_s));
        QCOMPARE(recorded.failure, u"The location service has ended."_s);
        QVERIFY(m_world.tell("stand_at 10.7769 106.7009 25"));
        QVERIFY(restartDaemon());
        QCOMPARE(recorded.eventsOf(position, 2), QStringList({u"status 3"_s, u"located"_s}));
    }

    void aDaemonThatIsStuckFailsThePosition()
    {
        Recorded recorded(shortLimits);
        QVERIFY(m_world.tell("freeze_daemon"));
        QCOMPARE(recorded.eventsOf(position), QStringList(u"failed"_s));
        QCOMPARE(recorded.failure, u"The location service did not answer."_s);
        QVERIFY(m_world.tell("thaw_daemon"));
        QCOMPARE(recorded.eventsOf(position, 2), QStringList({u"status 3"_s, u"located"_s}));
    }

    void anEndpointThatHangsFailsThePosition()
    {
        Recorded recorded(shortLimits);
        QVERIFY(m_world.tell("hang"));
        QVERIFY(restartDaemon());
        QCOMPARE(recorded.eventsOf(position), QStringList(u"failed"_s));
        QCOMPARE(recorded.failure, u"The location could not be determined in time."_s);
    }

    void anEndpointThatFailsFailsThePosition()
    {
        Recorded recorded(shortLimits);
        QVERIFY(m_world.tell("fail 404"));
        QVERIFY(restartDaemon());
        QCOMPARE(recorded.eventsOf(position), QStringList(u"failed"_s));
        QCOMPARE(recorded.failure, u"The location could not be determined in time."_s);
        QVERIFY(m_world.tell("stand_at 10.7769 106.7009 25"));
        QVERIFY(restartDaemon());
        QCOMPARE(recorded.eventsOf(position, 2), QStringList({u"status 3"_s, u"located"_s}));
    }

    void aChangedPositionIsFound()
    {
        Recorded recorded(patientLimits);
        QVERIFY(m_world.tell("stand_at 21.0285 105.8542 40"));
        QVERIFY(restartDaemon());
        QCOMPARE(recorded.eventsOf(position, 2), QStringList({u"status 3"_s, u"located"_s}));
        QCOMPARE(recorded.locations.last().latitude, 21.0285);
        QCOMPARE(recorded.locations.last().accuracyMeters, 40.0);
    }

private:
    [[nodiscard]] bool restartDaemon()
    {
        return m_world.tell("stop_daemon") && m_world.tell("start_daemon");
    }

    GeoClueWorld m_world;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::GeoClueLocationManagerTest)
#include "GeoClueLocationManagerTest.moc"
