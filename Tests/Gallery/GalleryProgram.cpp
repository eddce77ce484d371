// Shows the program's views in all their states, or writes a picture of each, or what the documents
// show of them:
//   quorvel_gallery [--write FOLDER | --illustrate FOLDER]
#include "Tests/Gallery/Gallery.h"
#include "Tests/Gallery/GalleryPictures.h"

#include <QDir>
#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickView>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QUrl>
#include <QVariant>

#include <cstdio>
#include <string_view>

using namespace quorvel::tests;
using namespace Qt::StringLiterals;

namespace {

constexpr auto pictureScale = "2";

using Writer = bool (*)(QQmlEngine &, const QDir &);

/// Null if there is none of that name.
Writer writerOf(std::string_view option)
{
    if (option == "--write")
        return &GalleryPictures::writeAll;
    if (option == "--illustrate")
        return &GalleryPictures::writeIllustrations;
    return nullptr;
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
    const Writer write = argc == 3 ? writerOf(argv[1]) : nullptr;
    if (argc != 1 && !write) {
        std::fputs("usage: quorvel_gallery [--write FOLDER | --illustrate FOLDER]\n", stderr);
        return 2;
    }
    // Order: Qt reads the scale when the application is created.
    if (write)
        qputenv("QT_SCALE_FACTOR", pictureScale);
    const QGuiApplication application(argc, argv);
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QQmlEngine engine;
    if (!write)
        return showAll(engine);
    if (write(engine, QDir(QString::fromLocal8Bit(argv[2]))))
        return 0;
    std::fputs("the pictures could not be written\n", stderr);
    return 1;
}
