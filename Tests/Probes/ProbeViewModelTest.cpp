#include "_Probes/ProbeViewModel.h"

#include "Core/Support/AppError.h"
#include "Platform/Errors/Outcome.h"
#include "Platform/Location/Location.h"
#include "Services/Places/FakePlacesService.h"
#include "Tests/Probes/ProbeWorld.h"

#include <QHash>
#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

constexpr Location seat{
    .latitude = 10.7769, .longitude = 106.70091, .accuracyMeters = 19.6, .timestamp = {}};

/// The kind and the text of each line.
QStringList told(const ProbeViewModel &probe, qsizetype from = 0)
{
    const QHash<LogLine::Kind, QString> marks{{LogLine::Kind::Normal, u"  "_s},
                                              {LogLine::Kind::Success, u"+ "_s},
                                              {LogLine::Kind::Error, u"! "_s},
                                              {LogLine::Kind::Separator, u"# "_s}};
    QStringList lines;
    for (const LogLine &line : probe.logLines().sliced(from))
        lines.append(marks[line.kind] + line.text);
    return lines;
}

/// The lines after the two start-up lines.
QStringList toldSinceLaunch(const ProbeViewModel &probe)
{
    return told(probe, 2);
}

} // namespace

class ProbeViewModelTest final : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.emplace(); }

    void theMembersBeginAsTheyShould()
    {
        m_world->wifi.ssid = u"Gió Sông 5G"_s;
        m_world->system.status = AuthorizationStatus::Denied;
        const auto probe = m_world->makeViewModel();
        QCOMPARE(probe.authStatus(), AuthorizationStatus::Denied);
        QCOMPARE(probe.coordinates(), QString());
        QCOMPARE(probe.accuracy(), QString());
        QCOMPARE(probe.ssidBefore(), u"Gió Sông 5G"_s);
        QCOMPARE(probe.ssidAfter(), u"(not checked)"_s);
        QVERIFY(probe.cafes().isEmpty());
        QVERIFY(!probe.isLocating());
        QCOMPARE(probe.verdict(), QString());
        QCOMPARE(probe.logLines().size(), 2);
        QCOMPARE(probe.checkInCount(), 0);
        QVERIFY(probe.recentCheckIns().isEmpty());
    }

    void theLaunchReadsTheNameThenTheStatusAndAsksNothing()
    {
        m_world->wifi.ssid = u"Gió Sông 5G"_s;
        m_world->system.status = AuthorizationStatus::AuthorizedAlways;
        const auto probe = m_world->makeViewModel();
        QCOMPARE(told(probe), QStringList({u"+ SSID before Location: Gió Sông 5G"_s,
                                           u"  Auth status on launch: authorized ✅"_s}));
        QVERIFY(m_world->location.calls.isEmpty());
    }

    void aLaunchWithoutANetworkSaysSo()
    {
        const auto probe = m_world->makeViewModel();
        QCOMPARE(probe.ssidBefore(), u"(nil)"_s);
        QCOMPARE(told(probe), QStringList({u"! SSID before Location: (nil)"_s,
                                           u"  Auth status on launch: notDetermined"_s}));
    }

    void linesAreNumbered()
    {
        auto probe = m_world->makeViewModel();
        probe.searchCafes();
        for (int number = 0; number < probe.logLines().size(); ++number)
            QCOMPARE(probe.logLines()[number].id(), number);
    }

    void aNameIsOneLineOfTheLog()
    {
        m_world->wifi.ssid = u"x\nAuth status on launch:\u2028y\u2029z\r"_s;
        const auto probe = m_world->makeViewModel();
        QCOMPARE(told(probe).first(), u"+ SSID before Location: x Auth status on launch: y z "_s);
    }

    void locatingTellsEachStep()
    {
        auto probe = m_world->makeViewModel();
        m_world->wifi.ssid = u"Gió Sông 5G"_s;
        m_world->location.authorize(AuthorizationStatus::AuthorizedAlways);
        m_world->location.holdLocation();
        const QSignalSpy changes(&probe, &ProbeViewModel::changed);
        probe.locate();
        LoopWorld::settle();
        QVERIFY(probe.isLocating());
        m_world->location.locationWaiter.finish(seat);
        LoopWorld::settle();
        QVERIFY(!probe.isLocating());
        QCOMPARE(
            toldSinceLaunch(probe),
            QStringList({u"# Location"_s, u"  Asking for authorization"_s,
                         u"+ Auth status: authorized ✅"_s, u"+ Coordinates: 10.77690, 106.70091"_s,
                         u"  Accuracy: ±20 m"_s, u"+ SSID after Location: Gió Sông 5G"_s,
                         u"  Locating revealed the network name."_s}));
        QCOMPARE(changes.count(), 7);
        QCOMPARE(probe.authStatus(), AuthorizationStatus::AuthorizedAlways);
        QCOMPARE(probe.coordinates(), u"10.77690, 106.70091"_s);
        QCOMPARE(probe.accuracy(), u"±20 m"_s);
        QCOMPARE(probe.ssidAfter(), u"Gió Sông 5G"_s);
        QCOMPARE(probe.verdict(), u"Locating revealed the network name."_s);
    }

    void aRefusalIsAnErrorAndTheNameIsReadAllTheSame()
    {
        auto probe = m_world->makeViewModel();
        m_world->location.authorize(AuthorizationStatus::Denied);
        m_world->location.refuseLocation(AppError::locationDenied());
        probe.locate();
        LoopWorld::settle();
        QCOMPARE(toldSinceLaunch(probe),
                 QStringList({u"# Location"_s, u"  Asking for authorization"_s,
                              u"! Auth status: denied"_s,
                              u"! Location access denied. Open System Settings to enable."_s,
                              u"! SSID after Location: (nil)"_s,
                              u"  There is no network name, before or after locating."_s}));
        QVERIFY(!probe.isLocating());
        QCOMPARE(probe.coordinates(), QString());
    }

    void aFixThatFailsForgetsTheLastOne()
    {
        auto probe = m_world->makeViewModel();
        m_world->willLocate(seat);
        probe.locate();
        LoopWorld::settle();
        m_world->location.authorize(AuthorizationStatus::AuthorizedAlways);
        m_world->location.refuseLocation(AppError::locationFailed(u"No signal"_s));
        probe.locate();
        LoopWorld::settle();
        QVERIFY(told(probe).contains(u"! Location error: No signal"_s));
        QCOMPARE(probe.coordinates() + probe.accuracy(), QString());
        probe.searchCafes();
        QVERIFY(m_world->places.calls.requests.empty());
    }

    void locatingTwiceIsLocatingOnce()
    {
        auto probe = m_world->makeViewModel();
        m_world->location.holdAuthorization();
        probe.locate();
        LoopWorld::settle();
        const auto lines = probe.logLines().size();
        probe.locate();
        LoopWorld::settle();
        QCOMPARE(m_world->location.calls, QStringList(u"requestAuthorization"_s));
        QCOMPARE(probe.logLines().size(), lines);
        m_world->location.locate(seat);
        m_world->location.authorizationWaiter.finish(AuthorizationStatus::AuthorizedAlways);
        LoopWorld::settle();
        locate(probe);
        QCOMPARE(m_world->location.calls.count(u"currentLocation"_s), 2);
    }

    void searchingListsEachRowAsTheServiceGaveIt()
    {
        auto probe = m_world->makeViewModel();
        locate(probe);
        const auto lines = probe.logLines().size();
        m_world->places.calls.willSucceed(LoopWorld::found());
        probe.searchCafes();
        QVERIFY(probe.isSearching());
        LoopWorld::settle();
        QVERIFY(!probe.isSearching());
        QCOMPARE(m_world->places.calls.requests,
                 std::vector({FakePlacesService::Request{{10.7769, 106.70091}, 100}}));
        QCOMPARE(told(probe, lines),
                 QStringList({u"# Cafés"_s, u"  Searching within 100 m"_s, u"+ 2 café(s) found"_s,
                              u"  Far · 80 m · Cafe"_s, u"  Near · 42 m · Cafe"_s}));
        QCOMPARE(probe.cafes(),
                 QList<ProbeViewModel::Row>({{u"Far"_s, u"Far"_s, u"80 m"_s, u"Cafe"_s},
                                             {u"Near"_s, u"Near"_s, u"42 m"_s, u"Cafe"_s}}));
    }

    void searchingWithoutAPositionIsAnError()
    {
        auto probe = m_world->makeViewModel();
        probe.searchCafes();
        QCOMPARE(toldSinceLaunch(probe),
                 QStringList(
                     {u"# Cafés"_s, u"! There is no position to search around: locate first."_s}));
        QVERIFY(!probe.isSearching());
    }

    void aSearchThatFailsIsAnErrorWithoutRows()
    {
        auto probe = m_world->makeViewModel();
        locate(probe);
        search(probe);
        m_world->places.calls.willFail(AppError::network(u"no route"_s));
        probe.searchCafes();
        LoopWorld::settle();
        QCOMPARE(told(probe).last(), u"! Network error: no route"_s);
        QVERIFY(probe.cafes().isEmpty());
        QVERIFY(!probe.isSearching());
    }

    void searchingTwiceIsSearchingOnce()
    {
        auto probe = m_world->makeViewModel();
        locate(probe);
        m_world->places.calls.willHold();
        probe.searchCafes();
        const auto lines = probe.logLines().size();
        probe.searchCafes();
        LoopWorld::settle();
        QCOMPARE(probe.logLines().size(), lines);
        QCOMPARE(m_world->places.calls.requests.size(), 1U);
    }

    void theFiveNewestCheckInsAreListed()
    {
        for (int day = 1; day <= 6; ++day)
            m_world->visit(u"2026-11-0%1T08:05:00Z"_s.arg(day), u"Café %1"_s.arg(day));
        m_world->repository.visits.back()->setCafe(nullptr);
        auto probe = m_world->makeViewModel();
        probe.readCheckIns();
        probe.readCheckIns();
        QCOMPARE(probe.checkInCount(), 6);
        QCOMPARE(probe.recentCheckIns(),
                 QStringList({u"2026-11-06 08:05 · Unknown café"_s, u"2026-11-05 08:05 · Café 5"_s,
                              u"2026-11-04 08:05 · Café 4"_s, u"2026-11-03 08:05 · Café 3"_s,
                              u"2026-11-02 08:05 · Café 2"_s}));
        QCOMPARE(told(probe, 9).first(3),
                 QStringList({u"# Check-ins"_s, u"+ 6 check-in(s) stored"_s,
                              u"  2026-11-06 08:05 · Unknown café"_s}));
    }

    void fewerCheckInsThanFiveAreAll()
    {
        auto probe = m_world->makeViewModel();
        probe.readCheckIns();
        QCOMPARE(toldSinceLaunch(probe),
                 QStringList({u"# Check-ins"_s, u"+ 0 check-in(s) stored"_s}));
    }

    void aStoreThatFailsIsAnError()
    {
        m_world->repository.failing = {u"allCheckIns"_s};
        m_world->repository.failure = u"The disk does not answer."_s;
        auto probe = m_world->makeViewModel();
        probe.readCheckIns();
        QCOMPARE(told(probe).last(), u"! The disk does not answer."_s);
    }

    void aStoreThatIsNotOpenSaysWhy()
    {
        m_world->setupError = u"Read-only folder."_s;
        auto probe = m_world->makeViewModel(ProbeWorld::Store::Absent);
        probe.readCheckIns();
        QCOMPARE(told(probe).last(), u"! The store is not open: Read-only folder."_s);
    }

    void theCopyHoldsNothingThatTellsWhereSomebodySits()
    {
        m_world->wifi.ssid = u"Gió Sông 5G"_s;
        m_world->visit(u"2026-11-06T08:05:00Z"_s, u"Sân Trong"_s);
        auto probe = m_world->makeViewModel();
        locate(probe);
        search(probe);
        probe.readCheckIns();
        m_world->places.calls.willFail(AppError::network(u"no way from Gió Sông 5G to Near"_s));
        probe.searchCafes();
        LoopWorld::settle();
        probe.copyLog();
        QCOMPARE(m_world->system.pasteboard.calls, QStringList(u"text"_s));
        QCOMPARE(m_world->system.pasteboard.text,
                 u"Quorvel diagnostics, without names and with rounded coordinates\n"
                 "SSID before Location: (left out)\n"
                 "Auth status on launch: notDetermined\n"
                 "— Location —\n"
                 "Asking for authorization\n"
                 "Auth status: authorized ✅\n"
                 "Coordinates: 10.78, 106.70\n"
                 "Accuracy: ±20 m\n"
                 "SSID after Location: (left out)\n"
                 "Locating did not change the network name.\n"
                 "— Cafés —\n"
                 "Searching within 100 m\n"
                 "2 café(s) found\n"
                 "(left out) · Cafe\n"
                 "(left out) · Cafe\n"
                 "— Check-ins —\n"
                 "1 check-in(s) stored\n"
                 "(left out)\n"
                 "— Cafés —\n"
                 "Searching within 100 m\n"
                 "Network error: no way from (left out) to (left out)\n"_s);
    }

    void whatIsNotThereIsNotLeftOut()
    {
        auto probe = m_world->makeViewModel();
        probe.copyLog();
        QVERIFY(m_world->system.pasteboard.text.contains(u"SSID before Location: (nil)\n"_s));
    }

    void copyingIsTold()
    {
        auto probe = m_world->makeViewModel();
        probe.copyLog();
        QCOMPARE(told(probe).last(),
                 u"+ Log copied, without names and with coordinates rounded to about a "
                 "kilometre"_s);
    }

    void anActionOutlivesItsProbeInSilence()
    {
        auto probe = std::unique_ptr<ProbeViewModel>(new ProbeViewModel(m_world->makeViewModel()));
        locate(*probe);
        m_world->places.calls.willHold();
        m_world->location.holdAuthorization();
        probe->searchCafes();
        probe->locate();
        LoopWorld::settle();
        probe.reset();
        m_world->places.calls.release(
            Outcome<FakePlacesService::Candidates>::success(LoopWorld::found()));
        m_world->location.authorizationWaiter.finish(AuthorizationStatus::AuthorizedAlways);
        LoopWorld::settle();
        QCOMPARE(m_world->location.calls.count(u"currentLocation"_s), 1);
    }

    void aFixThatComesTooLateIsDropped()
    {
        auto probe = std::unique_ptr<ProbeViewModel>(new ProbeViewModel(m_world->makeViewModel()));
        m_world->location.authorize(AuthorizationStatus::AuthorizedAlways);
        m_world->location.holdLocation();
        probe->locate();
        LoopWorld::settle();
        probe.reset();
        m_world->location.locationWaiter.finish(seat);
        LoopWorld::settle();
    }

private:
    void locate(ProbeViewModel &probe)
    {
        m_world->willLocate(seat);
        probe.locate();
        LoopWorld::settle();
    }
    void search(ProbeViewModel &probe)
    {
        m_world->places.calls.willSucceed(LoopWorld::found());
        probe.searchCafes();
        LoopWorld::settle();
    }

    std::optional<ProbeWorld> m_world;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::ProbeViewModelTest)
#include "ProbeViewModelTest.moc"
