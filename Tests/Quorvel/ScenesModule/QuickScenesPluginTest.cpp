#include "Core/DI/AppEnvironment.h"
#include "Core/DI/Scenes.h"
#include "Platform/Appearance/FakeAppearance.h"
#include "Platform/Clock/Clock.h"
#include "Platform/Files/FileManager.h"
#include "Tests/Support/Patience.h"

#include <QGuiApplication>
#include <QPluginLoader>
#include <QRegularExpression>
#include <QTest>
#include <QWindow>

using namespace quorvel;
using namespace Qt::StringLiterals;

class QuickScenesPluginTest final : public QObject
{
    Q_OBJECT

private slots:
    void moduleHoldsWhatTheProgramShows()
    {
        QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support)"_s));
        QPluginLoader loader(QStringLiteral(SCENES_MODULE));
        auto *plugin = qobject_cast<ScenesPlugin *>(loader.instance());
        QVERIFY2(plugin, qPrintable(loader.errorString()));
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nowhere");
        AppEnvironment environment(FileManager::standard(), Clock::system());
        FakeAppearance appearance;
        const auto scenes = plugin->makeScenes(environment, appearance);
        scenes->openMenuBarPanel({});
        QVERIFY(scenes->openWindow(u"history"_s));
        QVERIFY(scenes->openWindow(u"probe8"_s));
        // The diagnostics wait for the radio, which does not exist here.
        QTRY_COMPARE(titles(), (QStringList{u"Check-ins — Quorvel"_s, u"Probe8"_s, u"Quorvel"_s}));
        QVERIFY(!scenes->openWindow(u"probe"_s));
    }

private:
    [[nodiscard]] static QStringList titles()
    {
        QStringList titles;
        for (const QWindow *window : QGuiApplication::topLevelWindows())
            titles << window->title();
        titles.sort();
        return titles;
    }
};

QTEST_MAIN(QuickScenesPluginTest)
#include "QuickScenesPluginTest.moc"
