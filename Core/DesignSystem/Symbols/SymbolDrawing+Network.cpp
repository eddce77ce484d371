#include "Core/DesignSystem/Symbols/SymbolFamily.h"

#include <QPainter>
#include <QPointF>
#include <QRectF>
#include <QSizeF>

using namespace Qt::StringLiterals;

namespace quorvel::SymbolDrawing {
namespace {

/// Angles run counter-clockwise from three o'clock.
void drawArc(QPainter &painter, const QPointF &centre, double radius, double start, double span)
{
    const QRectF square(centre - QPointF(radius, radius), QSizeF(radius, radius) * 2);
    QPainterPath path;
    path.arcMoveTo(square, start);
    path.arcTo(square, start, span);
    painter.drawPath(path);
}

QPainterPath lockBody()
{
    return roundedRectangle({4.5, 10.5, 15, 10.75}, 2.5);
}

void drawShackle(QPainter &painter)
{
    QPainterPath shackle({7.75, 10.5});
    shackle.lineTo(7.75, 7);
    shackle.arcTo(QRectF(7.75, 2.75, 8.5, 8.5), 180, -180);
    shackle.lineTo(16.25, 10.5);
    painter.drawPath(shackle);
}

void drawWifi(QPainter &painter)
{
    const QPointF source(12, 19.5);
    for (const double radius : {5.0, 9.75, 14.5})
        drawArc(painter, source, radius, 45, 90);
    dot(painter, source - QPointF(0, 0.5), 1.6);
}

void drawWifiSlashed(QPainter &painter)
{
    drawWifi(painter);
    slash(painter);
}

void drawLock(QPainter &painter)
{
    painter.drawPath(lockBody());
    drawShackle(painter);
}

void drawLockFilled(QPainter &painter)
{
    fill(painter, lockBody());
    drawShackle(painter);
}

void drawEye(QPainter &painter)
{
    QPainterPath lids({1.75, 12});
    lids.cubicTo(4.5, 7.25, 8, 5, 12, 5);
    lids.cubicTo(16, 5, 19.5, 7.25, 22.25, 12);
    lids.cubicTo(19.5, 16.75, 16, 19, 12, 19);
    lids.cubicTo(8, 19, 4.5, 16.75, 1.75, 12);
    painter.drawPath(lids);
    painter.drawPath(circle({12, 12}, 3.25));
}

void drawEyeSlashed(QPainter &painter)
{
    drawEye(painter);
    slash(painter);
}

void drawPower(QPainter &painter)
{
    drawArc(painter, {12, 12.75}, 8.75, 125, 290);
    painter.drawLine(QPointF(12, 2.75), QPointF(12, 11.5));
}

void drawArrowClockwise(QPainter &painter)
{
    drawArc(painter, {12, 12.25}, 9, 25, 300);
    painter.drawPath(line({{20.25, 3.25}, {20.25, 8.5}, {15, 8.5}}));
}

void drawMagnifyingGlass(QPainter &painter)
{
    painter.drawPath(circle({10.25, 10.25}, 7.5));
    painter.drawLine(QPointF(15.75, 15.75), QPointF(21.25, 21.25));
}

} // namespace

SymbolFamily networkFamily()
{
    return {
        {u"wifi"_s, drawWifi},
        {u"wifi.slash"_s, drawWifiSlashed},
        {u"lock"_s, drawLock},
        {u"lock.fill"_s, drawLockFilled},
        {u"eye"_s, drawEye},
        {u"eye.slash"_s, drawEyeSlashed},
        {u"power"_s, drawPower},
        {u"arrow.clockwise"_s, drawArrowClockwise},
        {u"magnifyingglass"_s, drawMagnifyingGlass},
    };
}

} // namespace quorvel::SymbolDrawing
