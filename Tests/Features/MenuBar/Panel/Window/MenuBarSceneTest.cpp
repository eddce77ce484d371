#include "Features/MenuBar/Panel/Window/MenuBarScene.h"

#include "Platform/LoginItem/LoginItem.h"
#include "Platform/SystemSettings/SystemSettings.h"
#include "Tests/Features/MenuBar/Panel/PanelWorld.h"

#include <QCoreApplication>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QTimerEvent>
#include <QUrl>

#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

using Kind = MenuBarScreen::Kind;
using Store = PanelWorld::Store;

class MenuBarSceneTest final : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.emplace(); }

    void theFormIsMadeOnTheFirstAppearanceOnly()
    {
        auto scene = m_world->makeScene();
        const QSignalSpy made(&scene, &MenuBarScene::locatedChanged);
        QCOMPARE(scene.located(), nullptr);
        m_world->willFind(LoopWorld::found());
        appear(scene);
        const auto *form = scene.located();
        QVERIFY(form);
        m_world->loop.willLocate();
        appear(scene);
        QCOMPARE(scene.located(), form);
        QCOMPARE(made.count(), 1);
    }

    void withoutAStoreItWaitsWhateverIsFound()
    {
        auto scene = m_world->makeScene(Store::Absent);
        const QSignalSpy changes(scene.screen(), &MenuBarScreen::changed);
        m_world->willFind(LoopWorld::found());
        appear(scene);
        QCOMPARE(changes.count(), 2);
        QCOMPARE(scene.located(), nullptr);
        QCOMPARE(scene.screen()->kind(), Kind::Waiting);
    }

    void withoutAStoreARefusalIsStillSaid()
    {
        auto scene = m_world->makeScene(Store::Absent);
        m_world->loop.location.authorize(AuthorizationStatus::Denied);
        appear(scene);
        QCOMPARE(scene.screen()->kind(), Kind::Denied);
    }

    void everyOpeningStartsALoad()
    {
        auto scene = m_world->makeScene();
        m_world->willFind(LoopWorld::found());
        appear(scene);
        QCOMPARE(m_world->loop.newCalls(), (QList<qsizetype>{1, 1, 1}));
        m_world->loop.willLocate();
        appear(scene);
        QCOMPARE(m_world->loop.newCalls(), (QList<qsizetype>{1, 0, 0}));
    }

    void theFormShowsWhatTheLoopFinds()
    {
        auto scene = m_world->makeScene();
        m_world->willFind(LoopWorld::found());
        appear(scene);
        QCOMPARE(scene.screen()->kind(), Kind::Located);
        QCOMPARE(scene.located()->title(), u"Near"_s);
    }

    void theSettingsOpenAtTheLocation()
    {
        auto scene = m_world->makeScene();
        scene.openSystemSettings();
        const auto page =
            u"x-apple.systempreferences:com.apple.preference.security?Privacy_LocationServices"_s;
        QCOMPARE(m_world->systemSettings.opened, QList<QUrl>{QUrl(page)});
        QVERIFY(!scene.lacksSettings());
    }

    void whereThereAreNoSettingsThatIsSaidUntilTheNextOpening()
    {
        auto scene = m_world->makeScene();
        const QSignalSpy notices(&scene, &MenuBarScene::lacksSettingsChanged);
        m_world->systemSettings.canOpen = false;
        scene.openSystemSettings();
        scene.openSystemSettings();
        QVERIFY(scene.lacksSettings());
        QCOMPARE(notices.count(), 1);
        m_world->willFind(LoopWorld::found());
        appear(scene);
        QVERIFY(!scene.lacksSettings());
        QCOMPARE(notices.count(), 2);
    }

    void theLoginItemIsReadAtEachOpening()
    {
        auto scene = m_world->makeScene();
        m_world->loginItem.scriptedStatus = LoginItem::Status::Enabled;
        QVERIFY(!scene.launchAtLoginEnabled());
        const QSignalSpy changes(&scene, &MenuBarScene::launchAtLoginEnabledChanged);
        m_world->willFind(LoopWorld::found());
        appear(scene);
        QVERIFY(scene.launchAtLoginEnabled());
        m_world->loop.willLocate();
        appear(scene);
        QCOMPARE(changes.count(), 1);
    }

    void whatComesBackMendsAnOpenPanel()
    {
        auto scene = m_world->makeScene();
        openWithoutCafe(scene);
        comeBack(scene);
        QCOMPARE(m_world->loop.newCalls(), (QList<qsizetype>{1, 1, 1}));
        QCOMPARE(scene.located()->title(), u"Near"_s);
    }

    void whatComesBackWhileTheUserTypesWaitsForThem()
    {
        auto scene = m_world->makeScene();
        openWithoutCafe(scene);
        scene.located()->setChoosingOrTyping(true);
        comeBack(scene);
        QCOMPARE(m_world->loop.newCalls(), (QList<qsizetype>{0, 0, 0}));
        scene.located()->setChoosingOrTyping(false);
        letSettle(scene);
        QCOMPARE(m_world->loop.newCalls(), (QList<qsizetype>{1, 1, 1}));
    }

    void whatComesBackAfterThePanelHasClosedIsNotHeard()
    {
        auto scene = m_world->makeScene();
        openWithoutCafe(scene);
        scene.disappear();
        QVERIFY(!m_world->systemEvents.isFollowed);
    }

    void withoutAStoreNothingIsLookedForTwice()
    {
        auto scene = m_world->makeScene(Store::Absent);
        openWithoutCafe(scene);
        comeBack(scene);
        QCOMPARE(m_world->loop.newCalls(), (QList<qsizetype>{0, 0, 0}));
    }

private:
    void openWithoutCafe(MenuBarScene &scene)
    {
        m_world->willFind({});
        appear(scene);
        static_cast<void>(m_world->loop.newCalls());
    }
    /// The network is back and has settled.
    void comeBack(MenuBarScene &scene)
    {
        m_world->willFind(LoopWorld::found());
        m_world->systemEvents.bringBack(Returning::Network);
        letSettle(scene);
    }
    static void letSettle(MenuBarScene &scene)
    {
        auto *settling = scene.findChild<QTimer *>(u"settling"_s);
        QVERIFY(settling->isActive());
        QTimerEvent elapsed(settling->timerId());
        QCoreApplication::sendEvent(settling, &elapsed);
        LoopWorld::settle();
    }
    static void appear(MenuBarScene &scene)
    {
        scene.appear();
        LoopWorld::settle();
    }

    std::optional<PanelWorld> m_world;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::MenuBarSceneTest)
#include "MenuBarSceneTest.moc"
