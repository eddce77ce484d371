// The cost of a click on the icon: the time from the click to the panel's frame, first with loading
// the module and then again, and the memory afterwards.
#include "Core/DI/AppEnvironment.h"
#include "Core/DI/Scenes.h"
#include "Platform/Appearance/FakeAppearance.h"
#include "Platform/Clock/Clock.h"
#include "Platform/Files/FileManager.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QGuiApplication>
#include <QObject>
#include <QPluginLoader>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <chrono>
#include <cstdio>

using namespace quorvel;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int reopenings = 10;
constexpr QRect anchor(1200, 0, 22, 22);

QWindow *panelWindow()
{
    for (QWindow *window : QGuiApplication::topLevelWindows())
        if (window->title() == u"Quorvel"_s)
            return window;
    qFatal("The panel has no window");
}

void settle()
{
    QEventLoop loop;
    QTimer::singleShot(700ms, &loop, &QEventLoop::quit);
    loop.exec();
}

double millisecondsToFrame(const QElapsedTimer &sinceClick)
{
    QEventLoop loop;
    QObject::connect(panelWindow(), SIGNAL(frameSwapped()), &loop, SLOT(quit()));
    QTimer::singleShot(10s, &loop, [] { qFatal("No frame came"); });
    loop.exec();
    return double(sinceClick.nsecsElapsed()) / 1e6;
}

/// In MiB, from the kernel's numbers for the whole process.
double memory(const QByteArray &line)
{
    QFile file(u"/proc/self/smaps_rollup"_s);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The kernel does not tell");
    const QByteArray all = file.readAll();
    const QByteArray rest = all.mid(all.indexOf('\n' + line + ':') + line.size() + 2).trimmed();
    return rest.left(rest.indexOf(' ')).toDouble() / 1024;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    AppEnvironment environment(FileManager::standard(), Clock::system());
    settle();
    const double before = memory("Pss");

    QElapsedTimer click;
    click.start();
    QPluginLoader loader(QStringLiteral(SCENES_MODULE));
    auto *plugin = qobject_cast<ScenesPlugin *>(loader.instance());
    if (!plugin)
        qFatal("%s", qUtf8Printable(loader.errorString()));
    const double loaded = double(click.nsecsElapsed()) / 1e6;
    FakeAppearance appearance;
    const auto scenes = plugin->makeScenes(environment, appearance);
    scenes->toggleMenuBarPanel(anchor);
    const double first = millisecondsToFrame(click);
    settle();
    const double opened = memory("Pss");

    QList<double> again;
    for (int i = 0; i < reopenings; ++i) {
        scenes->toggleMenuBarPanel(anchor);
        settle();
        click.restart();
        scenes->toggleMenuBarPanel(anchor);
        again << millisecondsToFrame(click);
        settle();
    }
    std::ranges::sort(again);
    std::printf("first opening %.1f ms (of it the module %.1f)\n", first, loaded);
    std::printf("opening again %.1f ms (worst %.1f)\n", again[reopenings / 2], again.last());
    std::printf("memory %.1f MiB before, %.1f open, %.1f after %d more (anonymous %.1f)\n", before,
                opened, memory("Pss"), reopenings, memory("Anonymous"));
    return 0;
}
