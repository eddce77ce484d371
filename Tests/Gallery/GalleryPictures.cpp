#include "Tests/Gallery/GalleryPictures.h"

#include "Core/DesignSystem/Theme/Theme.h"
#include "Tests/Features/MenuBar/Loop/LoopWorld.h"
#include "Tests/Gallery/GalleryStage.h"
#include "Tests/Gallery/States/GalleryStates.h"
#include "Tests/Support/Patience.h"

#include <QDir>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QTest>

#include <algorithm>
#include <functional>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

namespace {

/// Null if the picture cannot be taken.
using Camera = std::function<QImage(GalleryStage &, QQuickWindow &)>;

struct Illustration
{
    QString name;
    QString state;
    Camera camera;
};

QImage ofWindow(GalleryStage &, QQuickWindow &window)
{
    return window.grabWindow();
}

QImage ofCard(GalleryStage &stage, QQuickWindow &)
{
    return stage.cardPicture();
}

QList<Illustration> illustrations()
{
    return {{u"panel"_s, u"MenuBarRootView/rated"_s, ofWindow},
            {u"history"_s, u"HistoryView/list"_s, ofWindow},
            {u"card"_s, u"VisitDetailView/full"_s, ofCard}};
}

QImage take(QQmlEngine &engine, const GalleryState &state, const Camera &camera)
{
    QQuickWindow window;
    window.setColor(Theme::shared().color()->background());
    // Order: views load their content once they are on screen.
    window.show();
    if (!QTest::qWaitForWindowExposed(&window, patienceMilliseconds))
        return {};
    GalleryStage stage(engine, *window.contentItem());
    state.make(stage);
    stage.layOut();
    window.resize(stage.size().toSize());
    LoopWorld::settle();
    return camera(stage, window);
}

bool writeInBothLooks(QQmlEngine &engine, const GalleryState &state, const Camera &camera,
                      const QString &path)
{
    const auto write = [&](AppearanceStyle style, const QString &suffix) {
        Theme::shared().setStyle(style);
        return take(engine, state, camera).save(path + suffix);
    };
    return write(AppearanceStyle::Light, u"-light.png"_s) &&
           write(AppearanceStyle::Dark, u"-dark.png"_s);
}

} // namespace

bool GalleryPictures::writeAll(QQmlEngine &engine, const QDir &folder)
{
    const auto states = GalleryStates::all();
    return folder.mkpath(u"."_s) &&
           std::all_of(states.begin(), states.end(), [&](const GalleryState &state) {
               const auto name = QString(state.name).replace(u'/', u'-');
               return writeInBothLooks(engine, state, ofWindow, folder.filePath(name));
           });
}

bool GalleryPictures::writeIllustrations(QQmlEngine &engine, const QDir &folder)
{
    if (!folder.mkpath(u"."_s))
        return false;
    const auto states = GalleryStates::all();
    for (const auto &[name, stateName, camera] : illustrations()) {
        const auto state =
            std::find_if(states.begin(), states.end(),
                         [wanted = stateName](const auto &each) { return each.name == wanted; });
        if (state == states.end() ||
            !writeInBothLooks(engine, *state, camera, folder.filePath(name)))
            return false;
    }
    return true;
}

} // namespace quorvel::tests
