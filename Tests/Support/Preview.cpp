// Renders a view into a picture, to look at: quorvel_preview OUT.png [--dark] [--tabs N]
// [SHEET.qml] Without a sheet it is the panel. QT_SCALE_FACTOR=2 gives the picture for a fine
// screen.
#include "Core/DesignSystem/Theme.h"
#include "Features/MenuBar/MenuBarPanel.h"

#include <QGuiApplication>
#include <QImage>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTest>

using namespace quorvel;
using namespace Qt::StringLiterals;

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    QStringList arguments = application.arguments().mid(1);
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    if (arguments.removeAll(u"--dark"_s) > 0) {
        Theme::shared().setStyle(AppearanceStyle::Dark);
    }
    qsizetype tabs = 0;
    if (const auto at = arguments.indexOf(u"--tabs"_s); at >= 0) {
        tabs = arguments.value(at + 1).toInt();
        arguments.remove(at, 2);
    }
    QQmlEngine engine;
    MenuBarPanel panel(engine, {.isEnabled = [] { return true; }, .setEnabled = [](bool) {}});
    QQuickView sheet(&engine, nullptr);
    QQuickView *view = &panel.window();
    if (arguments.size() > 1) {
        sheet.setSource(QUrl::fromLocalFile(arguments[1]));
        view = &sheet;
        view->show();
    } else {
        panel.open({});
    }
    if (!QTest::qWaitForWindowActive(view)) {
        return 1;
    }
    while (tabs-- > 0) {
        QTest::keyClick(view, Qt::Key_Tab);
    }
    return view->grabWindow().save(arguments.value(0)) ? 0 : 1;
}
