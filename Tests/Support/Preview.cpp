// Renders a view into a picture, to look at; QT_SCALE_FACTOR=2 gives the one for a fine screen:
//   quorvel_preview [--dark] [--tabs N] [--hover X,Y] [--press X,Y] OUT.png [SHEET.qml]
// Without a sheet it is the panel.
#include "Core/DesignSystem/Theme.h"
#include "Features/MenuBar/MenuBarPanel.h"
#include "Features/MenuBar/MenuBarServices.h"
#include "Tests/Support/QuietFacilities.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QImage>
#include <QQmlEngine>
#include <QQuickView>
#include <QTest>

using namespace quorvel;
using namespace Qt::StringLiterals;

namespace {

QPoint point(const QString &text)
{
    return {text.section(u',', 0, 0).toInt(), text.section(u',', 1, 1).toInt()};
}

void act(QQuickView &view, const QCommandLineParser &options)
{
    for (int i = 0; i < options.value(u"tabs"_s).toInt(); ++i)
        QTest::keyClick(&view, Qt::Key_Tab);
    if (options.isSet(u"hover"_s))
        QTest::mouseMove(&view, point(options.value(u"hover"_s)));
    if (options.isSet(u"press"_s))
        QTest::mousePress(&view, Qt::LeftButton, {}, point(options.value(u"press"_s)));
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    QCommandLineParser options;
    options.addOptions({{u"dark"_s, u"on a dark desktop"_s},
                        {u"tabs"_s, u"after so many tabs"_s, u"N"_s},
                        {u"hover"_s, u"with the pointer there"_s, u"X,Y"_s},
                        {u"press"_s, u"with the button down there"_s, u"X,Y"_s}});
    options.process(application);
    const QStringList files = options.positionalArguments();

    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    if (options.isSet(u"dark"_s))
        Theme::shared().setStyle(AppearanceStyle::Dark);
    QQmlEngine engine;
    tests::QuietFacilities facilities;
    MenuBarServices services(facilities.menuBar());
    MenuBarPanel panel(engine, services.roles(nullptr),
                       {.isEnabled = [] { return true; }, .setEnabled = [](bool) {}});
    QQuickView sheet(&engine, nullptr);
    if (files.size() > 1) {
        sheet.setSource(QUrl::fromLocalFile(files[1]));
        sheet.show();
    } else {
        panel.open({});
    }
    QQuickView &view = files.size() > 1 ? sheet : panel.window();
    if (!QTest::qWaitForWindowActive(&view))
        return 1;
    act(view, options);
    return view.grabWindow().save(files.value(0)) ? 0 : 1;
}
