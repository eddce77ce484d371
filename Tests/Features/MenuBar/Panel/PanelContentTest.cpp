#include "Core/DesignSystem/Rendering/ViewFactory.h"
#include "Features/MenuBar/Panel/MenuBarScreen.h"
#include "Tests/Features/MenuBar/Loop/LoopWorld.h"
#include "Tests/Features/MenuBar/Panel/PanelOnScreen.h"

#include <QObject>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QSignalSpy>
#include <QTest>
#include <QVariant>

#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

using Store = PanelWorld::Store;

/// Which screen the panel shows for each state of the loop.
class PanelContentTest final : public QObject
{
    Q_OBJECT

private slots:
    static void initTestCase() { QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); }
    void init()
    {
        QuickTest::failOnWarnings();
        use(Store::Present);
    }
    void cleanup() { m_panel.reset(); }

    void itWaitsWhileIdle() { QCOMPARE(screens(), QStringList{u"LocatingView"_s}); }

    void itWaitsWhileLoading()
    {
        world().loop.location.holdAuthorization();
        m_panel->open();
        QCOMPARE(screens(), QStringList{u"LocatingView"_s});
        QVERIFY(m_panel->text(u"Đang định vị quán cafe…"_s));
    }

    void itSaysARefusalAndOffersSettingsAndRetry()
    {
        openRefused();
        QCOMPARE(screens(), QStringList{u"DeniedView"_s});
        QVERIFY(m_panel->text(u"Location access denied. Open System Settings to enable."_s));
        QVERIFY(m_panel->control(u"Open System Settings"_s));
        QVERIFY(m_panel->control(u"Retry"_s));
    }

    void itShowsTheVisitOnceLocated()
    {
        openLocated();
        QCOMPARE(screens(), QStringList{u"LocatedView"_s});
        QVERIFY(m_panel->text(u"Near"_s));
    }

    void itWaitsWhenLocatedWithoutAStore()
    {
        use(Store::Absent);
        world().willFind(LoopWorld::found());
        m_panel->open();
        QCOMPARE(world().loop.weather.calls.requests.size(), 1U);
        QCOMPARE(screens(), QStringList{u"LocatingView"_s});
    }

    void itWaitsWhenLocatedBeforeThereIsAForm()
    {
        auto scene = world().makeScene();
        world().willFind(LoopWorld::found());
        scene.screen()->retry();
        LoopWorld::settle();
        QCOMPARE(scene.screen()->kind(), MenuBarScreen::Kind::Located);
        const auto content = ViewFactory::make(m_panel->engine, u"MenuBar"_s, u"PanelContent"_s,
                                               {{u"scene"_s, QVariant::fromValue(&scene)}});
        auto *item = qobject_cast<QQuickItem *>(content.get());
        QVERIFY(QuickTest::find(item, "objectName", u"LocatingView"_s)->isVisible());
        QVERIFY(!QuickTest::find(item, "objectName", u"LocatedView"_s));
    }

    void retryLocatesAgain()
    {
        openRefused();
        world().willFind(LoopWorld::found());
        world().willHear({});
        m_panel->press(u"Retry"_s);
        QCOMPARE(screens(), QStringList{u"LocatedView"_s});
    }

    void settingsThatAreMissingAreSaid()
    {
        openRefused();
        world().systemSettings.canOpen = false;
        m_panel->press(u"Open System Settings"_s);
        QCOMPARE(world().systemSettings.opened.size(), 1);
        QVERIFY(m_panel->text(u"No settings program was found here. Please allow location for "
                              "Quorvel in your desktop's settings."_s));
    }

    void theHistoryCanBeOpenedInEveryState_data()
    {
        QTest::addColumn<QString>("screen");
        for (const auto &screen : {u"LocatingView"_s, u"DeniedView"_s, u"LocatedView"_s})
            QTest::newRow(qPrintable(screen)) << screen;
    }

    void theHistoryCanBeOpenedInEveryState()
    {
        QFETCH(const QString, screen);
        if (screen == u"LocatingView"_s) {
            world().loop.location.holdAuthorization();
            m_panel->open();
        } else {
            screen == u"DeniedView"_s ? openRefused() : openLocated();
        }
        QCOMPARE(screens(), QStringList{screen});
        const QSignalSpy requested(&m_panel->panel, &MenuBarPanel::windowRequested);
        m_panel->press(u"Check-ins"_s);
        QCOMPARE(requested.count(), 1);
    }

    void anyOtherErrorOffersRetryOnly()
    {
        const auto view = ViewFactory::make(m_panel->engine, u"MenuBar"_s, u"DeniedView"_s,
                                            {{u"message"_s, u"No cafe found."_s},
                                             {u"canOpenSettings"_s, false},
                                             {u"lacksSettings"_s, false}});
        auto *item = qobject_cast<QQuickItem *>(view.get());
        QVERIFY(!QuickTest::find(item, "label", u"Open System Settings"_s)->isVisible());
        QVERIFY(QuickTest::find(item, "label", u"Retry"_s)->isVisible());
    }

private:
    void use(Store store)
    {
        m_panel.reset();
        m_panel.emplace(store);
    }
    void openRefused()
    {
        world().loop.location.authorize(AuthorizationStatus::Denied);
        m_panel->open();
    }
    void openLocated()
    {
        world().willFind(LoopWorld::found());
        world().willHear({});
        m_panel->open();
    }
    [[nodiscard]] PanelWorld &world() { return m_panel->world; }
    [[nodiscard]] QStringList screens()
    {
        QStringList names;
        for (const auto &name : {u"LocatingView"_s, u"DeniedView"_s, u"LocatedView"_s})
            if (m_panel->view(name))
                names.append(name);
        return names;
    }

    std::optional<PanelOnScreen> m_panel;
};

} // namespace quorvel::tests

QTEST_MAIN(quorvel::tests::PanelContentTest)
#include "PanelContentTest.moc"
