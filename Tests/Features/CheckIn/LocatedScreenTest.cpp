#include "Features/CheckIn/LocatedScreen.h"

#include "Core/Persistence/FakeCheckInRepository.h"
#include "Core/Support/AppError.h"
#include "Features/MenuBar/Loop/MenuBarInput.h"
#include "Models/CheckIn.h"
#include "Models/WorkRatings.h"
#include "Platform/Errors/Outcome.h"
#include "Platform/NotificationCenter/NotificationCenter.h"
#include "Platform/Pasteboard/FakePasteboard.h"
#include "Tests/Features/MenuBar/Loop/LoopWorld.h"

#include <QAbstractItemModel>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QSignalSpy>
#include <QTest>
#include <QVariant>

#include <memory>
#include <optional>
#include <utility>
#include <variant>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

struct World
{
    LoopWorld loop;
    FakeCheckInRepository repository;
    FakePasteboard pasteboard;
    NotificationCenter center;
    CheckInViewModel form{repository, loop.keychain, loop.clock, center};
    LocatedScreen screen{*loop.viewModel, form, loop.services(), pasteboard};
};

} // namespace

class LocatedScreenTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_world.reset();
        m_world.emplace();
    }
    void cleanup() { m_world.reset(); }

    void itShowsThePlaceThatTheLoopFound()
    {
        load();
        QVERIFY(screen().hasCafe());
        QCOMPARE(screen().title(), u"Near"_s);
        QCOMPARE(screen().subtitle(), u" · 42 m away"_s);
        QVERIFY(screen().hasWeather());
        QCOMPARE(screen().temperature(), u"23°"_s);
        QCOMPARE(screen().feels(), u"Feels 25°"_s);
        QCOMPARE(screen().weatherCode(), 0);
        QVERIFY(screen().isDay());
        QVERIFY(screen().canChange());
        QVERIFY(screen().isButtonEnabled());
        QCOMPARE(screen().hintText(), QString());
    }

    void itShowsThatThereIsNoPlace()
    {
        m_world->loop.willAuthorize();
        m_world->loop.location.refuseLocation(AppError::locationFailed(u"no fix"_s));
        m_world->loop.send(MenuBarInput::start());
        QVERIFY(!screen().hasCafe() && !screen().hasWeather() && !screen().canChange());
        QCOMPARE(screen().title(), u"Couldn't detect café"_s);
        QCOMPARE(screen().temperature(), u"Weather unavailable"_s);
        QVERIFY(!screen().isButtonEnabled());
        QCOMPARE(screen().hintText(), u"Connect to load your café first."_s);
    }

    void aScreenMadeLateShowsWhatIsThere()
    {
        load();
        const LocatedScreen late(*m_world->loop.viewModel, m_world->form, m_world->loop.services(),
                                 m_world->pasteboard);
        QCOMPARE(late.title(), u"Near"_s);
    }

    void thePickerListsTheCandidatesAndSelects()
    {
        load();
        QCOMPARE(row(screen().candidates(), 0, "name"), QVariant(u"Near"_s));
        QCOMPARE(row(screen().candidates(), 0, "distanceText"), QVariant(u"42m"_s));
        QCOMPARE(row(screen().candidates(), 1, "distanceText"), QVariant(u"80m"_s));
        screen().selectCafe(1);
        LoopWorld::settle();
        QCOMPARE(screen().title(), u"Far"_s);
        QCOMPARE(screen().candidates()->rowCount(), 2);
    }

    void aRowThatIsNotThereSelectsNothing()
    {
        load();
        for (const int row : {-1, 2}) {
            screen().selectCafe(row);
            LoopWorld::settle();
            QCOMPARE(screen().title(), u"Near"_s);
        }
    }

    void candidatesAreChangedInPlace()
    {
        load();
        const QSignalSpy resets(screen().candidates(), &QAbstractItemModel::modelReset);
        const QSignalSpy removals(screen().candidates(), &QAbstractItemModel::rowsRemoved);
        m_world->loop.willLocate();
        m_world->loop.places.calls.willSucceed(
            {LoopWorld::cafe(u"Near"_s, 43), LoopWorld::cafe(u"Far"_s, 80)});
        m_world->loop.weather.calls.willSucceed(LoopWorld::sun());
        screen().retry();
        LoopWorld::settle();
        QCOMPARE(row(screen().candidates(), 0, "distanceText"), QVariant(u"43m"_s));
        QCOMPARE(resets.count() + removals.count(), 0);
    }

    void retryLocatesAgainAndTheLastPlaceStaysMeanwhile()
    {
        load();
        m_world->loop.location.holdAuthorization();
        screen().retry();
        LoopWorld::settle();
        QVERIFY(m_world->loop.viewModel->state().isLoading());
        QCOMPARE(screen().title(), u"Near"_s);
    }

    void theStatusIsAskedWhenShownAndForEachNewPlace()
    {
        m_world->repository.checkedInToday = {u"Far"_s};
        load();
        QCOMPARE(asked(), 0);
        show();
        QCOMPARE(asked(), 1);
        QVERIFY(screen().isButtonEnabled());
        screen().selectCafe(1);
        LoopWorld::settle();
        QCOMPARE(asked(), 2);
        QCOMPARE(screen().hintText(), u"Already checked in today at this café."_s);
        QVERIFY(!screen().isButtonEnabled());
        screen().disappear();
        screen().selectCafe(0);
        LoopWorld::settle();
        QCOMPARE(asked(), 2);
        show();
        QVERIFY(screen().isButtonEnabled());
    }

    void aCheckInSavesWhatIsShown()
    {
        load();
        show();
        screen().setNote(u"quiet"_s);
        screen().setRating(0, 5);
        const QSignalSpy changes(&screen(), &LocatedScreen::checkInChanged);
        screen().checkIn();
        QCOMPARE(m_world->repository.visits.size(), 1U);
        const CheckIn &visit = *m_world->repository.visits.front();
        QCOMPARE(visit.note(), u"quiet"_s);
        QCOMPARE(visit.ratings().wifiSpeed, 5);
        QCOMPARE(visit.cafe()->name(), u"Near"_s);
        QCOMPARE(screen().buttonTitle(), u"Checked in!"_s);
        QCOMPARE(screen().buttonSymbol(), u"checkmark.circle.fill"_s);
        QCOMPARE(screen().hintText(), u"Already checked in today at this café."_s);
        QVERIFY(!screen().isButtonEnabled());
        QCOMPARE(changes.count(), 3);
        QCOMPARE(screen().note(), QString());
        QCOMPARE(row(screen().ratings(), 0, "score"), QVariant(3));
    }

    void aFailedCheckInSaysWhyAndMayBeTriedAgain()
    {
        load();
        m_world->repository.failing = {u"save"_s};
        m_world->repository.failure = u"Disk full."_s;
        screen().checkIn();
        QCOMPARE(screen().errorText(), u"Network error: Disk full."_s);
        QVERIFY(screen().isButtonEnabled());
        QCOMPARE(screen().buttonTitle(), u"Check In"_s);
    }

    void itIsInUseWhileTheUserChoosesOrTypes()
    {
        load();
        const QSignalSpy changes(&screen(), &LocatedScreen::isInUseChanged);
        QVERIFY(!screen().isInUse());
        screen().setChoosingOrTyping(true);
        QVERIFY(screen().isInUse());
        screen().setChoosingOrTyping(true);
        screen().setChoosingOrTyping(false);
        QVERIFY(!screen().isInUse());
        QCOMPARE(changes.count(), 2);
    }

    void itIsInUseWhileANetworkIsJoined()
    {
        load();
        m_world->loop.wifi.scans.willSucceed({{u"Guest"_s, -60}});
        screen().appear();
        LoopWorld::settle();
        screen().wifi()->toggle(u"Guest"_s);
        screen().wifi()->setConnectPasswordDraft(u"12345678"_s);
        m_world->loop.wifi.joins.willHold();
        screen().wifi()->submit();
        screen().wifi()->toggle(u"Guest"_s);
        QVERIFY(screen().isInUse());
        const QSignalSpy changes(&screen(), &LocatedScreen::isInUseChanged);
        m_world->loop.wifi.joins.release(Outcome<std::monostate>::success({}));
        LoopWorld::settle();
        QVERIFY(!screen().isInUse());
        QVERIFY(!changes.isEmpty());
    }

    void whatIsSavedIsWhatWasPressedAlthoughTheScreenMovesOn()
    {
        load();
        connect(
            &m_world->form, &CheckInViewModel::saveStateChanged, this,
            [this] {
                m_world->loop.send(MenuBarInput::selectCafe(LoopWorld::found()[0]));
                // From here on nobody but the screen could keep what was pressed.
                m_world->loop.states.clear();
            },
            Qt::SingleShotConnection);
        screen().checkIn();
        QCOMPARE(screen().title(), u"Far"_s);
        QCOMPARE(m_world->repository.visits.front()->cafe()->name(), u"Near"_s);
    }

    void itIsInUseWhileItSaysWhatASaveHasComeTo()
    {
        load();
        show();
        const QSignalSpy changes(&screen(), &LocatedScreen::isInUseChanged);
        screen().checkIn();
        QVERIFY(screen().isInUse());
        QVERIFY(!changes.isEmpty());
    }

    void eachRatingHasItsRow()
    {
        const auto scores = [this] {
            const WorkRatings &ratings = m_world->form.ratings();
            return QList<qint64>{ratings.wifiSpeed, ratings.outlets, ratings.noise,
                                 ratings.quietForCalls};
        };
        QCOMPARE(row(screen().ratings(), 0, "title"), QVariant(u"WiFi speed"_s));
        QCOMPARE(row(screen().ratings(), 2, "hint"), QVariant(u"Lower = quieter"_s));
        for (int index = 0; index < 4; ++index) {
            screen().setRating(index, index + 2);
            QCOMPARE(row(screen().ratings(), index, "score"), QVariant(index + 2));
        }
        QCOMPARE(scores(), (QList<qint64>{2, 3, 4, 5}));
        screen().setRating(0, 1);
        for (const auto &[index, score] : {std::pair(0, 0), {0, 6}, {-1, 5}, {4, 5}})
            screen().setRating(index, score);
        QCOMPARE(scores(), (QList<qint64>{1, 3, 4, 5}));
    }

    void theWifiBlockFollowsThePlaceAndTheShowing()
    {
        m_world->loop.wifi.ssid = u"Cafe 5G"_s;
        m_world->loop.wifi.signal = WifiSignal(-50);
        load();
        QCOMPARE(m_world->loop.wifi.scanCount, 0);
        show();
        QCOMPARE(m_world->loop.wifi.scanCount, 1);
        QCOMPARE(row(screen().wifi()->rows(), 0, "ssid"), QVariant(u"Cafe 5G"_s));
        QCOMPARE(row(screen().wifi()->rows(), 0, "detailText"), QVariant(u"Strong · -50 dBm"_s));
        QVERIFY(row(screen().wifi()->rows(), 0, "isOpen").toBool());
    }

    void aViewBindsItsProperties()
    {
        load();
        QQmlEngine engine;
        QQmlComponent component(&engine);
        component.setData(
            "import QtQml\nimport Quorvel.CheckIn\n"
            "QtObject { required property LocatedScreen screen\n"
            "property string text: screen.title + screen.wifi.headerText\n"
            "property bool waits: screen.wifi.scanState === WifiScanSection.Scanning }",
            {});
        const std::unique_ptr<QObject> view(
            component.createWithInitialProperties({{u"screen"_s, QVariant::fromValue(&screen())}}));
        QVERIFY2(view, qPrintable(component.errorString()));
        QCOMPARE(view->property("text"), QVariant(u"NearScanning…"_s));
        QVERIFY(view->property("waits").toBool());
        screen().selectCafe(1);
        LoopWorld::settle();
        QCOMPARE(view->property("text"), QVariant(u"FarScanning…"_s));
    }

private:
    [[nodiscard]] LocatedScreen &screen() { return m_world->screen; }
    void load()
    {
        m_world->loop.willFindAll();
        m_world->loop.send(MenuBarInput::start());
    }
    void show()
    {
        m_world->loop.wifi.scans.willSucceed({});
        screen().appear();
        LoopWorld::settle();
    }
    [[nodiscard]] qsizetype asked() const
    {
        return m_world->repository.calls.count(u"hasCheckedInToday"_s);
    }
    [[nodiscard]] static QVariant row(const QAbstractItemModel *rows, int index,
                                      const QByteArray &role)
    {
        return rows->index(index, 0).data(rows->roleNames().key(role));
    }

    std::optional<World> m_world;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::LocatedScreenTest)
#include "LocatedScreenTest.moc"
