#include "Features/MenuBar/Panel/MenuBarScreen.h"

#include "Core/Support/AppError.h"
#include "Features/MenuBar/Loop/MenuBarInput.h"
#include "Tests/Features/MenuBar/Loop/LoopWorld.h"

#include <QSignalSpy>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

using Kind = MenuBarScreen::Kind;
using Form = MenuBarScreen::CheckInForm;

class MenuBarScreenTest final : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.emplace(); }

    void itWaitsUntilTheFirstResult()
    {
        MenuBarScreen screen(*m_world->viewModel, Form::Present);
        const QSignalSpy changes(&screen, &MenuBarScreen::changed);
        QCOMPARE(screen.kind(), Kind::Waiting);
        m_world->location.holdAuthorization();
        m_world->location.locate(LoopWorld::home());
        m_world->places.calls.willSucceed(LoopWorld::found());
        m_world->weather.calls.willSucceed(LoopWorld::sun());
        m_world->viewModel->send(MenuBarInput::start());
        LoopWorld::settle();
        QCOMPARE(screen.kind(), Kind::Waiting);
        QCOMPARE(changes.count(), 1);
        m_world->location.authorizationWaiter.finish(AuthorizationStatus::AuthorizedAlways);
        LoopWorld::settle();
        QCOMPARE(screen.kind(), Kind::Located);
        QCOMPARE(changes.count(), 2);
        QCOMPARE(screen.errorText(), QString());
        QVERIFY(!screen.canOpenSettings());
    }

    void withoutAFormItWaitsForEver()
    {
        MenuBarScreen screen(*m_world->viewModel, Form::Absent);
        m_world->willFindAll();
        m_world->viewModel->send(MenuBarInput::start());
        LoopWorld::settle();
        QVERIFY(m_world->viewModel->state().isLoaded());
        QCOMPARE(screen.kind(), Kind::Waiting);
    }

    void aDeniedLocationIsSaidAndSettingsCanHelp()
    {
        MenuBarScreen screen(*m_world->viewModel, Form::Absent);
        m_world->location.authorize(AuthorizationStatus::Denied);
        m_world->viewModel->send(MenuBarInput::start());
        LoopWorld::settle();
        QCOMPARE(screen.kind(), Kind::Denied);
        QCOMPARE(screen.errorText(), u"Location access denied. Open System Settings to enable."_s);
        QVERIFY(screen.canOpenSettings());
    }

    void settingsHelpAgainstARefusalAlone()
    {
        const AppError denied = AppError::locationDenied();
        QVERIFY(MenuBarScreen::canOpenSettingsFor(&denied));
        QVERIFY(!MenuBarScreen::canOpenSettingsFor(nullptr));
        for (const AppError &error :
             {AppError::locationFailed(u"no fix"_s), AppError::network(u"down"_s),
              AppError::decoding(u"no number"_s), AppError::noCafeFound()})
            QVERIFY(!MenuBarScreen::canOpenSettingsFor(&error));
    }

    void retryLoadsAfresh()
    {
        MenuBarScreen screen(*m_world->viewModel, Form::Present);
        m_world->willFindAll();
        m_world->viewModel->send(MenuBarInput::start());
        LoopWorld::settle();
        m_world->willFindAll();
        screen.retry();
        LoopWorld::settle();
        QCOMPARE(m_world->newCalls(), (QList<qsizetype>{2, 2, 2}));
    }

private:
    std::optional<LoopWorld> m_world;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::MenuBarScreenTest)
#include "MenuBarScreenTest.moc"
