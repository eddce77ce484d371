#include "Features/MenuBar/Icon/MenuBarIcon.h"

#include "Core/DesignSystem/Theme/Palette.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <algorithm>
#include <utility>

namespace quorvel {

namespace {

// All lengths are points. The cup is drawn on a 22 x 22 grid. Its long edges lie on whole points,
// so that they are sharp at scale 1.
constexpr QPointF cupOrigin(3, 0);
constexpr QRectF saucer(3, 19, 18, 2);
constexpr QRectF coffee(7, 8, 10, 3);
constexpr qreal wispBottom = 4.75;
constexpr qreal wispTop = 1;
constexpr qreal wispWidth = 1.5;
constexpr qreal handleWidth = 1.75;

constexpr QPointF dotCentre(23, 16);
constexpr qreal dotOutline = 1.5;

constexpr int faintestAlpha = 32;

/// Status areas accept no picture wider than 64 pixels.
constexpr qreal scales[] = {1.0, 1.5, 2.0};

QPen roundPen(const QColor &colour, qreal width)
{
    return {colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

/// Seen slightly from above, from the far edge of its rim to its bottom.
QPainterPath bowl(qreal halfWidth, qreal rimTop, qreal bottom)
{
    constexpr qreal middle = 12;
    constexpr qreal rim = 9;
    constexpr qreal shoulder = 10;
    constexpr qreal footInset = 3;
    const qreal left = middle - halfWidth;
    const qreal right = middle + halfWidth;
    // A curve reaches three quarters of the way to its control points.
    const qreal control = rim - (rim - rimTop) * 4 / 3;
    QPainterPath path(QPointF(left, shoulder));
    path.lineTo(left, rim);
    path.cubicTo(left, control, right, control, right, rim);
    path.lineTo(right, shoulder);
    path.cubicTo(right, bottom - footInset, right - footInset, bottom, middle, bottom);
    path.cubicTo(left + footInset, bottom, left, bottom - footInset, left, shoulder);
    return path;
}

/// On the left, since the dot covers the cup's lower right.
QPainterPath handle()
{
    QPainterPath path(QPointF(6, 10));
    path.cubicTo(2, 9, 1, 15, 7, 15);
    return path;
}

QPainterPath wispOfSteam(qreal x)
{
    constexpr qreal swing = 1.5;
    QPainterPath path(QPointF(x, wispBottom));
    path.cubicTo(x - swing, wispBottom - 1.25, x + swing, wispTop + 1.25, x, wispTop);
    return path;
}

void paintCup(QPainter &painter)
{
    painter.strokePath(handle(), roundPen(Palette::mocha, handleWidth));
    for (const qreal x : {10.0, 14.0})
        painter.strokePath(wispOfSteam(x), roundPen(Palette::accentDeep, wispWidth));
    painter.setPen(Qt::NoPen);
    painter.setBrush(Palette::mocha);
    painter.drawRoundedRect(saucer, 1, 1);
    painter.drawPath(bowl(7, 6, 18));
    painter.setBrush(Palette::cream);
    painter.drawPath(bowl(6, 7, 17));
    painter.setBrush(Palette::espresso);
    painter.drawEllipse(coffee);
}

void paintDot(QPainter &painter, qreal radius)
{
    painter.setBrush(Palette::accent);
    painter.setPen(QPen(Palette::white, dotOutline));
    painter.drawEllipse(dotCentre, radius, radius);
}

/// Some status areas show even the faintest pixel in full colour. For the faintest pixels this is
/// not even the painted colour.
void clearFaintPixels(QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        auto *const line = reinterpret_cast<QRgb *>(image.scanLine(y));
        std::replace_if(
            line, line + image.width(), [](QRgb pixel) { return qAlpha(pixel) < faintestAlpha; },
            QRgb{});
    }
}

} // namespace

QPixmap MenuBarIcon::picture(qreal dotRadius, qreal scale)
{
    // Status areas count in pixels, not points. They would take a pixmap with a device pixel ratio
    // for another one of the smallest size, and drop it.
    QImage image((QSizeF(sizePoints) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    painter.save();
    painter.translate(cupOrigin);
    paintCup(painter);
    painter.restore();
    paintDot(painter, dotRadius);
    painter.end();
    clearFaintPixels(image);
    return QPixmap::fromImage(std::move(image));
}

QIcon MenuBarIcon::icon(qreal dotRadius)
{
    QIcon icon;
    for (const qreal scale : scales)
        icon.addPixmap(picture(dotRadius, scale));
    return icon;
}

} // namespace quorvel
