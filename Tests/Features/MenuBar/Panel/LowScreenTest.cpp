#include "Tests/Features/MenuBar/Loop/LoopWorld.h"
#include "Tests/Features/MenuBar/Panel/PanelOnScreen.h"

#include <QGuiApplication>
#include <QObject>
#include <QQuickItem>
#include <QQuickWindow>
#include <QRect>
#include <QSGRendererInterface>
#include <QScreen>
#include <QTemporaryFile>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

constexpr QRect lowScreen(0, 0, 800, 480);

/// The platform reads it when the application is created.
QByteArray screens()
{
    return R"({"screens": [{"name": "low", "x": 0, "y": 0, "width": 800, "height": 480}]})";
}

} // namespace

/// The panel on a screen that is lower than the panel.
class LowScreenTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
        QCOMPARE(QGuiApplication::primaryScreen()->geometry(), lowScreen);
    }
    void init()
    {
        QuickTest::failOnWarnings();
        m_panel.emplace();
        m_panel->world.willFind(LoopWorld::found());
        m_panel->world.willHear({{u"A"_s, -65}});
        m_panel->open();
    }
    void cleanup() { m_panel.reset(); }

    void thePanelIsNoHigherThanTheScreen()
    {
        QCOMPARE(m_panel->window().height(), lowScreen.height());
        QVERIFY(lowScreen.contains(m_panel->window().geometry()));
    }

    void theButtonIsOnScreenAndTheFormScrolls()
    {
        QVERIFY(m_panel->isInSight(m_panel->control(u"Check In"_s)));
        QVERIFY(m_panel->isInSight(m_panel->control(u"Quit Quorvel"_s)));
        QQuickItem *last = m_panel->control(u"Other network…"_s);
        QVERIFY(!m_panel->isInSight(last));
        last->forceActiveFocus(Qt::TabFocusReason);
        m_panel->settle();
        QVERIFY(m_panel->isInSight(last));
    }

private:
    std::optional<PanelOnScreen> m_panel;
};

} // namespace quorvel::tests

int main(int argc, char **argv)
{
    QTemporaryFile configuration;
    if (!configuration.open() || configuration.write(quorvel::tests::screens()) < 0)
        return 1;
    configuration.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + configuration.fileName().toLocal8Bit());
    QGuiApplication application(argc, argv);
    quorvel::tests::LowScreenTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "LowScreenTest.moc"
