#include "Features/Terminal/Commands/CheckInCommand.h"

#include "Features/CheckIn/CheckInViewModel.h"
#include "Models/CheckIn.h"
#include "Models/WorkRatings.h"
#include "Tests/Features/Terminal/TerminalWorld.h"

#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

class CheckInCommandTest final : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.emplace(); }

    void theNearestCafeIsVisitedAsTheFormWould()
    {
        m_world->loop.wifi.ssid = u"Cafe 5G"_s;
        m_world->loop.willFindAll();
        QCOMPARE(m_world->run({u"check-in"_s}), done);
        QCOMPARE(m_world->printed(), u"Checked in at Near.\n"_s);
        QCOMPARE(m_world->noted(), QString());
        const CheckIn &visit = *m_world->store.visits.at(0);
        QCOMPARE(visit.cafe()->name(), u"Near"_s);
        QCOMPARE(visit.cafe()->lastKnownSSID(), u"Cafe 5G"_s);
        QVERIFY(visit.ratings() == CheckInViewModel::initialRatings);
        QCOMPARE(visit.note(), QString());
        QVERIFY(visit.weather() == LoopWorld::sun());
        QVERIFY(visit.date() == m_world->loop.clock.instant);
        QVERIFY(m_world->loop.keychain.saved.isEmpty());
    }

    void scoresAndNoteAreTaken()
    {
        m_world->loop.willFindAll();
        QCOMPARE(m_world->run({u"check-in"_s, u"--wifi-speed=1"_s, u"--outlets=2"_s, u"--noise=4"_s,
                               u"--quiet-for-calls=5"_s, u"--note"_s, u"-- cà phê"_s}),
                 done);
        const CheckIn &visit = *m_world->store.visits.at(0);
        QVERIFY(visit.ratings() == (WorkRatings{1, 2, 4, 5}));
        QCOMPARE(visit.note(), u"-- cà phê"_s);
    }

    void whatIsNoScoreIsRefused_data()
    {
        QTest::addColumn<QString>("score");
        for (const QString &score :
             {u"0"_s, u"6"_s, u"-1"_s, u"3.5"_s, u"05"_s, u" 3"_s, u""_s, u"five"_s, u"٣"_s})
            QTest::newRow(qPrintable(score)) << score;
    }

    void whatIsNoScoreIsRefused()
    {
        QFETCH(const QString, score);
        QCOMPARE(m_world->run({u"check-in"_s, u"--noise"_s, score}), usage);
        QVERIFY(m_world->noted().startsWith(
            u"quorvel: “--noise” takes a score from 1 to 5, not “%1”\n"_s.arg(score)));
        QVERIFY(m_world->loop.location.calls.isEmpty());
    }

    void anotherCafeIsChosenByNameOrIdentifier_data()
    {
        QTest::addColumn<QString>("wanted");
        QTest::newRow("its name") << u"Cà phê Far"_s;
        QTest::newRow("in other letters") << u"  cÀ PHÊ  far "_s;
        QTest::newRow("in pieces") << u"Cà phê Far"_s.normalized(QString::NormalizationForm_D);
        QTest::newRow("its identifier") << u"node/2"_s;
    }

    void anotherCafeIsChosenByNameOrIdentifier()
    {
        QFETCH(const QString, wanted);
        willFindFar();
        QCOMPARE(m_world->run({u"check-in"_s, u"--cafe"_s, wanted}), done);
        QCOMPARE(m_world->printed(), u"Checked in at Cà phê Far.\n"_s);
        QCOMPARE(m_world->store.visits.at(0)->cafe()->mapItemIdentifier(), u"node/2"_s);
    }

    void theNearestCanBeNamed()
    {
        m_world->loop.willFindAll();
        QCOMPARE(m_world->run({u"check-in"_s, u"--cafe"_s, u"near"_s}), done);
        QCOMPARE(m_world->printed(), u"Checked in at Near.\n"_s);
    }

    void aCafeThatIsNotNearIsRefusedWithThoseThatAre()
    {
        m_world->loop.willFindAll();
        QCOMPARE(m_world->run({u"check-in"_s, u"--cafe"_s, u"Nea"_s}), noCafe);
        QCOMPARE(m_world->noted(), u"quorvel: no café “Nea” is near, but “Near”, “Far”\n"_s);
        QVERIFY(m_world->store.visits.empty());
    }

    void aSecondVisitOfTheDayIsRefused()
    {
        m_world->store.checkedInToday = {u"Near"_s};
        m_world->loop.willFindAll();
        QCOMPARE(m_world->run({u"check-in"_s}), alreadyCheckedIn);
        QCOMPARE(m_world->printed(), QString());
        QCOMPARE(m_world->noted(), u"quorvel: Already checked in today at this café.\n"_s);
        QVERIFY(m_world->store.visits.empty());
        m_world->loop.willFindAll();
        QCOMPARE(m_world->run({u"check-in"_s, u"--json"_s}), alreadyCheckedIn);
        QCOMPARE(m_world->printedJson()[u"status"], u"alreadyCheckedIn"_s);
        QCOMPARE(m_world->printedJson()[u"cafe"][u"id"], u"Near"_s);
        m_world->loop.willFindAll();
        QCOMPARE(m_world->run({u"check-in"_s, u"--cafe"_s, u"Far"_s}), done);
    }

    void jsonTellsOfTheVisit()
    {
        m_world->loop.willFindAll();
        QCOMPARE(m_world->run({u"check-in"_s, u"--json"_s}), done);
        QCOMPARE(m_world->printedJson().keys(),
                 QStringList({u"cafe"_s, u"status"_s, u"version"_s}));
        QCOMPARE(m_world->printedJson()[u"status"], u"checkedIn"_s);
        QCOMPARE(m_world->printedJson()[u"version"], 1);
        QCOMPARE(m_world->printedJson()[u"cafe"][u"mapItemIdentifier"], u"Near"_s);
    }

    void withoutACafeNothingIsStored()
    {
        m_world->loop.willLocate();
        m_world->loop.places.calls.willSucceed({});
        QCOMPARE(m_world->run({u"check-in"_s, u"--cafe"_s, u"Near"_s}), noCafe);
        QCOMPARE(m_world->noted(),
                 u"quorvel: Couldn't detect café. Check your connection, then retry.\n"_s);
        m_world->loop.willLocate();
        m_world->loop.places.calls.willSucceed({});
        QCOMPARE(m_world->run({u"check-in"_s, u"--json"_s}), noCafe);
        QCOMPARE(m_world->printedJson()[u"status"], u"noCafe"_s);
        QVERIFY(m_world->printedJson()[u"cafe"].isNull());
        QVERIFY(m_world->store.calls.isEmpty());
    }

    void aRefusalOfTheLocationStoresNothing()
    {
        m_world->loop.location.authorize(AuthorizationStatus::Denied);
        QCOMPARE(m_world->run({u"check-in"_s, u"--json"_s}), locationDenied);
        QCOMPARE(m_world->printedJson()[u"status"], u"locationDenied"_s);
        QVERIFY(m_world->noted().contains(u"Location access denied."_s));
        QVERIFY(m_world->store.calls.isEmpty());
    }

    void aVisitThatCannotBeStoredIsAFailure()
    {
        m_world->store.failing = {u"save"_s};
        m_world->store.failure = u"The disk is full."_s;
        m_world->loop.willFindAll();
        QCOMPARE(m_world->run({u"check-in"_s}), failure);
        QCOMPARE(m_world->printed(), QString());
        QCOMPARE(m_world->noted(), u"quorvel: Network error: The disk is full.\n"_s);
    }

    void withoutAStoreNothingIsLookedFor()
    {
        m_world->storeFailure.emplace(u"No store."_s);
        QCOMPARE(m_world->run({u"check-in"_s}), failure);
        QCOMPARE(m_world->noted(), u"quorvel: No store.\n"_s);
        QVERIFY(m_world->loop.location.calls.isEmpty());
    }

    void itHelps()
    {
        QCOMPARE(m_world->run({u"check-in"_s, u"--help"_s}), done);
        for (const QString &line : m_world->printed().split(u'\n'))
            QVERIFY2(line.size() <= 80, qPrintable(line));
        QVERIFY(m_world->loop.location.calls.isEmpty());
    }

private:
    void willFindFar()
    {
        auto far = LoopWorld::cafe(u"Cà phê Far"_s, 80);
        far.id = far.mapItemIdentifier.emplace(u"node/2"_s);
        m_world->loop.willLocate();
        m_world->loop.places.calls.willSucceed({far, LoopWorld::cafe(u"Near"_s, 42)});
        m_world->loop.weather.calls.willSucceed(LoopWorld::sun());
    }

    std::optional<TerminalWorld> m_world;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::CheckInCommandTest)
#include "CheckInCommandTest.moc"
