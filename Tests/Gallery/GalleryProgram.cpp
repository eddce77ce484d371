// Shows the program's views in all their states, or writes a picture of each:
//   quorvel_gallery [--write FOLDER]
#include "Core/DesignSystem/Theme.h"
#include "Tests/Gallery/Gallery.h"

#include <QDir>
#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickView>
#include <QTest>

#include <cstdio>

using namespace quorvel;
using namespace quorvel::tests;
using namespace Qt::StringLiterals;

namespace {

constexpr auto pictureScale = "2";

struct Look
{
    AppearanceStyle style;
    QString suffix;
};

bool write(QQmlEngine &engine, const GalleryState &state, const Look &look, const QDir &folder)
{
    Theme::shared().setStyle(look.style);
    QQuickWindow window;
    window.setColor(Theme::shared().color()->background());
    // Order: views load what they show once they are on screen.
    window.show();
    if (!QTest::qWaitForWindowExposed(&window))
        return false;
    GalleryStage stage(engine, *window.contentItem());
    state.make(stage);
    stage.layOut();
    window.resize(stage.size().toSize());
    LoopWorld::settle();
    const auto name = QString(state.name).replace(u'/', u'-') + look.suffix;
    return window.grabWindow().save(folder.filePath(name));
}

bool writeAll(QQmlEngine &engine, const QDir &folder)
{
    if (!folder.mkpath(u"."_s))
        return false;
    const Look looks[] = {{AppearanceStyle::Light, u"-light.png"_s},
                          {AppearanceStyle::Dark, u"-dark.png"_s}};
    for (const GalleryState &state : GalleryStates::all())
        for (const Look &look : looks)
            if (!write(engine, state, look, folder))
                return false;
    return true;
}

int showAll(QQmlEngine &engine)
{
    Gallery gallery(engine);
    QQuickView window(&engine, nullptr);
    window.setTitle(u"Quorvel's gallery"_s);
    window.setResizeMode(QQuickView::SizeRootObjectToView);
    window.setInitialProperties({{u"gallery"_s, QVariant::fromValue(&gallery)}});
    window.setSource(QUrl(u"qrc:/GalleryWindow.qml"_s));
    window.show();
    return QGuiApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    const bool writes = argc == 3 && qstrcmp(argv[1], "--write") == 0;
    if (argc != 1 && !writes) {
        std::fputs("usage: quorvel_gallery [--write FOLDER]\n", stderr);
        return 2;
    }
    // Order: the scale is read when the application is made.
    if (writes)
        qputenv("QT_SCALE_FACTOR", pictureScale);
    const QGuiApplication application(argc, argv);
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QQmlEngine engine;
    if (!writes)
        return showAll(engine);
    const QDir folder(QString::fromLocal8Bit(argv[2]));
    if (writeAll(engine, folder))
        return 0;
    std::fputs("the pictures could not be written\n", stderr);
    return 1;
}
