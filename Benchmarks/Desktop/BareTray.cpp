// The smallest Qt program with a pulsing tray icon: the reference for the program's start, memory
// and idle time.

#include "Core/DesignSystem/Theme/Palette.h"

#include <QApplication>
#include <QIcon>
#include <QObject>
#include <QPainter>
#include <QPen>
#include <QPixmap>
#include <QPointF>
#include <QSystemTrayIcon>
#include <QTimer>

namespace {

using namespace quorvel;

constexpr int pulseMilliseconds = 650;

QIcon dot(qreal radius)
{
    QPixmap pixmap(28, 22);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Palette::white, 1.5));
    painter.setBrush(Palette::accent);
    painter.drawEllipse(QPointF(23, 16), radius, radius);
    return QIcon(pixmap);
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QIcon normal = dot(3.5);
    const QIcon large = dot(4.725);
    QSystemTrayIcon item(normal);
    item.show();
    bool enlarged = false;
    QTimer ticker;
    QObject::connect(&ticker, &QTimer::timeout, &item, [&] {
        enlarged = !enlarged;
        item.setIcon(enlarged ? large : normal);
    });
    ticker.start(pulseMilliseconds);
    return QApplication::exec();
}
