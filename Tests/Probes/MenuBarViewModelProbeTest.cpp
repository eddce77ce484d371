#include "_Probes/Loop/MenuBarViewModelProbe.h"

#include "Core/Support/AppError.h"
#include "Tests/Features/MenuBar/Loop/LoopWorld.h"

#include <QSignalSpy>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

class MenuBarViewModelProbeTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_world.emplace();
        m_probe.emplace(m_world->services(), m_world->clock);
    }
    void cleanup() { m_probe.reset(); }

    void itIsIdleUntilItRuns()
    {
        LoopWorld::settle();
        QCOMPARE(m_probe->text(), u"idle — bấm Run để bắt đầu daily loop"_s);
        QVERIFY(!m_probe->isLoading() && !m_probe->isError() && !m_probe->isLoaded());
        QVERIFY(m_world->location.calls.isEmpty());
    }

    void runLocates()
    {
        m_world->location.holdAuthorization();
        const QSignalSpy changes(&*m_probe, &MenuBarViewModelProbe::changed);
        m_probe->run();
        LoopWorld::settle();
        QVERIFY(m_probe->isLoading());
        QCOMPARE(m_probe->text(), u"Locating"_s);
        QCOMPARE(changes.count(), 1);
    }

    void whatWasFoundIsFourLines()
    {
        m_world->wifi.ssid = u"Gió Sông 5G"_s;
        m_world->keychain.passwords.insert(u"Gió Sông 5G"_s, u"secret"_s);
        m_world->willFindAll();
        m_probe->run();
        LoopWorld::settle();
        QVERIFY(m_probe->isLoaded());
        QCOMPARE(m_probe->text(), u"Near\n23° · Feels 25°\n"
                                  "SSID: Gió Sông 5G  ·  remembered pass: true\n"
                                  "2 nearby candidate(s)"_s);
    }

    void aDegradedResultSaysWhatIsMissing()
    {
        m_world->willAuthorize();
        m_world->location.refuseLocation(AppError::locationFailed(u"no signal"_s));
        m_probe->run();
        LoopWorld::settle();
        QCOMPARE(m_probe->text(), u"Couldn't detect café (degraded)\nWeather unavailable\n"
                                  "SSID: (none)  ·  remembered pass: false\n"
                                  "0 nearby candidate(s)"_s);
    }

    void anErrorIsItsDescriptionAndRetryLoadsAfresh()
    {
        m_world->location.authorize(AuthorizationStatus::Denied);
        m_probe->run();
        LoopWorld::settle();
        QVERIFY(m_probe->isError());
        QCOMPARE(m_probe->text(), u"Location access denied. Open System Settings to enable."_s);
        m_world->willFindAll();
        m_probe->retry();
        LoopWorld::settle();
        QVERIFY(m_probe->isLoaded());
    }

    void retryTakesNothingFromTheCache()
    {
        m_world->willFindAll();
        m_probe->run();
        LoopWorld::settle();
        m_world->location.holdAuthorization();
        m_probe->retry();
        LoopWorld::settle();
        QVERIFY(m_probe->isLoading());
    }

    void runningTwiceEndsTheFirstLoad()
    {
        m_world->willAuthorize();
        m_world->location.holdLocation();
        m_probe->run();
        LoopWorld::settle();
        m_world->willFindAll();
        const QSignalSpy changes(&*m_probe, &MenuBarViewModelProbe::changed);
        m_probe->run();
        LoopWorld::settle();
        QVERIFY(m_probe->isLoaded());
        QCOMPARE(changes.count(), 1);
        QCOMPARE(m_world->places.calls.requests.size(), 1U);
    }

    void pressedTwiceAtOnceItLoadsOnce()
    {
        m_world->willFindAll();
        m_probe->run();
        m_probe->run();
        LoopWorld::settle();
        QCOMPARE(m_world->location.calls.count(u"currentLocation"_s), 1);
        QVERIFY(m_probe->isLoaded());
    }

    void cancelLeavesTheStateAsItIs()
    {
        m_world->location.holdAuthorization();
        m_probe->run();
        LoopWorld::settle();
        m_probe->cancel();
        m_world->location.authorizationWaiter.finish(AuthorizationStatus::AuthorizedAlways);
        LoopWorld::settle();
        QCOMPARE(m_probe->text(), u"Locating"_s);
        QVERIFY(!m_world->location.calls.contains(u"currentLocation"_s));
    }

private:
    std::optional<LoopWorld> m_world;
    std::optional<MenuBarViewModelProbe> m_probe;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::MenuBarViewModelProbeTest)
#include "MenuBarViewModelProbeTest.moc"
