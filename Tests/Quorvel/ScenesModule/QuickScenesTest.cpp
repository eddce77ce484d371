#include "Quorvel/ScenesModule/QuickScenes.h"

#include "Core/DI/AppEnvironment.h"
#include "Core/DesignSystem/Theme/Theme.h"
#include "Features/MenuBar/Panel/Window/MenuBarPanel.h"
#include "Models/CheckIn.h"
#include "Models/PlaceCandidate.h"
#include "Models/WorkRatings.h"
#include "Platform/Clock/Clock.h"
#include "Platform/Files/FileManager.h"
#include "Tests/Support/Patience.h"
#include "Tests/Support/QuickTest.h"
#include "Tests/Support/Services/QuietFacilities.h"

#include <QColor>
#include <QGuiApplication>
#include <QPointer>
#include <QQuickView>
#include <QSGRendererInterface>
#include <QSignalSpy>
#include <QUuid>

#include <algorithm>
#include <memory>
#include <optional>

using namespace quorvel;
using namespace Qt::StringLiterals;
using tests::patienceMilliseconds;

class QuickScenesTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QuickTest::failOnWarnings();
        m_system.emplace();
        m_scenes =
            std::make_unique<QuickScenes>(m_environment, m_system->facilities, m_system->window);
    }

    void cleanup()
    {
        m_scenes.reset();
        Theme::shared().setStyle(AppearanceStyle::Light);
    }

    void nothingIsBuiltBeforeItIsOpened() { QVERIFY(QGuiApplication::topLevelWindows().isEmpty()); }

    void softwareDrawsTheScenes()
    {
        QVERIFY(m_scenes->openWindow(u"history"_s));
        const auto *renderer = m_scenes->window(u"history"_s)->rendererInterface();
        QCOMPARE(renderer->graphicsApi(), QSGRendererInterface::Software);
    }

    void windowsHaveTheirTitles_data()
    {
        QTest::addColumn<QString>("identifier");
        QTest::addColumn<QString>("title");
        QTest::newRow("history") << u"history"_s << u"Check-ins — Quorvel"_s;
        QTest::newRow("probe8") << u"probe8"_s << u"Probe8"_s;
    }

    void windowsHaveTheirTitles()
    {
        QFETCH(QString, identifier);
        QFETCH(QString, title);
        QVERIFY(m_scenes->openWindow(identifier));
        QQuickWindow *window = m_scenes->window(identifier);
        QVERIFY(QTest::qWaitForWindowActive(window, patienceMilliseconds));
        QCOMPARE(window->title(), title);
        QCOMPARE(window->color(), Theme::shared().color()->background());
    }

    void unknownIdentifierIsRefused()
    {
        for (const auto &identifier : {u"probe"_s, u"History"_s, u""_s})
            QVERIFY(!m_scenes->openWindow(identifier));
        QVERIFY(QGuiApplication::topLevelWindows().isEmpty());
    }

    void openWindowIsRaisedNotDoubled()
    {
        QVERIFY(m_scenes->openWindow(u"history"_s));
        QQuickWindow *window = m_scenes->window(u"history"_s);
        QVERIFY(m_scenes->openWindow(u"probe8"_s));
        QVERIFY(QTest::qWaitForWindowActive(m_scenes->window(u"probe8"_s), patienceMilliseconds));
        QVERIFY(m_scenes->openWindow(u"history"_s));
        QVERIFY(QTest::qWaitForWindowActive(window, patienceMilliseconds));
        QCOMPARE(m_scenes->window(u"history"_s), window);
        QCOMPARE(QGuiApplication::topLevelWindows().size(), 2);
    }

    void closedWindowOpensAgain()
    {
        QVERIFY(m_scenes->openWindow(u"history"_s));
        QQuickWindow *window = m_scenes->window(u"history"_s);
        QVERIFY(window->close());
        QVERIFY(!window->isVisible());
        QVERIFY(m_scenes->openWindow(u"history"_s));
        QVERIFY(QTest::qWaitForWindowActive(window, patienceMilliseconds));
    }

    void minimizedWindowComesBackAsItWas()
    {
        QVERIFY(m_scenes->openWindow(u"history"_s));
        QQuickWindow *window = m_scenes->window(u"history"_s);
        window->setWindowStates(Qt::WindowMinimized | Qt::WindowMaximized);
        QVERIFY(m_scenes->openWindow(u"history"_s));
        QCOMPARE(window->windowStates(), Qt::WindowStates(Qt::WindowMaximized));
    }

    void historyHasASurfaceForItsToolbar()
    {
        QVERIFY(m_scenes->openWindow(u"history"_s));
        QQuickWindow *window = m_scenes->window(u"history"_s);
        QVERIFY(QTest::qWaitForWindowActive(window, patienceMilliseconds));
        QCOMPARE(window->grabWindow().pixelColor(10, 10), Theme::shared().color()->surface());
        QCOMPARE(window->grabWindow().pixelColor(10, 300), Theme::shared().color()->background());
    }

    void historyShowsTheStoredVisitsAtEachOpening()
    {
        QVERIFY(m_scenes->openWindow(u"history"_s));
        QQuickWindow *window = m_scenes->window(u"history"_s);
        QVERIFY(window->close());
        const auto cafe = u"Café "_s + QUuid::createUuid().toString();
        visit(cafe);
        QVERIFY(m_scenes->openWindow(u"history"_s));
        QVERIFY(QTest::qWaitForWindowActive(window, patienceMilliseconds));
        QTRY_VERIFY(QuickTest::find(window->contentItem(), "text", cafe));
    }

    void theProbeAsksWhatTheProgramRunsOn()
    {
        const auto cafe = u"Café "_s + QUuid::createUuid().toString();
        visit(cafe);
        QVERIFY(m_scenes->openWindow(u"probe8"_s));
        QQuickWindow *window = m_scenes->window(u"probe8"_s);
        QVERIFY(QTest::qWaitForWindowActive(window, patienceMilliseconds));
        QuickTest::click(QuickTest::find(window->contentItem(), "label", u"Read check-ins"_s));
        QuickTest::click(QuickTest::find(window->contentItem(), "label", u"Copy log"_s));
        QVERIFY(m_system->pasteboard.text.contains(u"check-in(s) stored\n(left out)\n"_s));
    }

    void theProbesLoopAndItsActionsMayAskForThePositionAtOnce()
    {
        QList<QPointer<FakeLocationManager>> managers;
        m_system->facilities.makeLocationManager = [&managers] {
            auto manager = std::make_unique<FakeLocationManager>();
            managers.append(manager.get());
            return manager;
        };
        QVERIFY(m_scenes->openWindow(u"probe8"_s));
        QQuickWindow *window = m_scenes->window(u"probe8"_s);
        QVERIFY(QTest::qWaitForWindowActive(window, patienceMilliseconds));
        QuickTest::click(QuickTest::find(window->contentItem(), "label", u"Run"_s));
        QuickTest::click(QuickTest::find(window->contentItem(), "label", u"Locate"_s));
        const auto asked = [&managers] {
            return std::ranges::count_if(managers, [](const auto &manager) {
                return manager && manager->calls.contains(u"requestWhenInUseAuthorization"_s);
            });
        };
        QTRY_COMPARE(asked(), 2);
    }

    void newCheckInClosesTheHistory()
    {
        QVERIFY(m_scenes->openWindow(u"history"_s));
        QQuickWindow *window = m_scenes->window(u"history"_s);
        QVERIFY(QTest::qWaitForWindowActive(window, patienceMilliseconds));
        QuickTest::click(QuickTest::find(window->contentItem(), "label", u"New check-in"_s));
        QTRY_VERIFY(!window->isVisible());
    }

    void panelOpensTheHistoryWindow()
    {
        m_scenes->openMenuBarPanel({});
        emit m_scenes->menuBarPanel().windowRequested(u"history"_s);
        QVERIFY(QTest::qWaitForWindowActive(m_scenes->window(u"history"_s), patienceMilliseconds));
        QTRY_VERIFY(!m_scenes->menuBarPanel().window().isVisible());
    }

    void clickOpensThePanel()
    {
        m_scenes->toggleMenuBarPanel({400, 0, 22, 22});
        QVERIFY(m_scenes->menuBarPanel().window().isVisible());
    }

    void quitInThePanelIsPassedOn()
    {
        const QSignalSpy quits(m_scenes.get(), &QuickScenes::quitRequested);
        emit m_scenes->menuBarPanel().quitRequested();
        QCOMPARE(quits.count(), 1);
    }

    void appearanceIsTakenOverAndFollowed()
    {
        QCOMPARE(Theme::shared().color()->background(), QColor(0xFBF6EF));
        m_system->appearance.setStyle(AppearanceStyle::Dark);
        QCOMPARE(Theme::shared().color()->background(), QColor(0x1A1410));
    }

    void darkDesktopIsDarkFromTheFirstFrame()
    {
        m_scenes.reset();
        m_system->appearance.setStyle(AppearanceStyle::Dark);
        const QuickScenes scenes(m_environment, m_system->facilities, m_system->window);
        QCOMPARE(Theme::shared().color()->background(), QColor(0x1A1410));
    }

private:
    /// A visit at the current time, in the store.
    void visit(const QString &cafe)
    {
        auto *repository = m_environment.checkInRepository();
        const PlaceCandidate place{.id = cafe, .name = cafe, .mapItemIdentifier = cafe};
        repository->save(std::make_shared<CheckIn>(
            QUuid::createUuid(), Clock::system().now(), QString(), std::nullopt, std::nullopt,
            WorkRatings(), std::nullopt, repository->findOrCreateCafe(place)));
    }

    AppEnvironment m_environment{FileManager::standard(), Clock::system()};
    std::optional<tests::QuietFacilities> m_system;
    std::unique_ptr<QuickScenes> m_scenes;
};

QTEST_MAIN(QuickScenesTest)
#include "QuickScenesTest.moc"
