#include "Core/DesignSystem/Symbols/SymbolFamily.h"

#include <QPainter>
#include <QPointF>

using namespace Qt::StringLiterals;

namespace quorvel::SymbolDrawing {
namespace {

/// The mug seen from the side, without its handle.
QPainterPath mug()
{
    QPainterPath path({4, 4.5});
    path.lineTo(17, 4.5);
    path.lineTo(17, 10);
    path.cubicTo(17, 13.75, 14.5, 16, 10.5, 16);
    path.cubicTo(6.5, 16, 4, 13.75, 4, 10);
    path.closeSubpath();
    return path;
}

void drawHandleAndSaucer(QPainter &painter)
{
    QPainterPath handle({17, 6.25});
    handle.lineTo(18.25, 6.25);
    handle.cubicTo(22.25, 6.25, 22.25, 12.25, 18.25, 12.25);
    handle.lineTo(16.5, 12.25);
    painter.drawPath(handle);
    painter.drawLine(QPointF(3, 20.25), QPointF(18, 20.25));
}

/// The needle of a compass.
QPainterPath needle()
{
    QPainterPath path = line({{20.75, 3.25}, {3.25, 10.5}, {11.25, 12.75}, {13.5, 20.75}});
    path.closeSubpath();
    return path;
}

void drawCupAndSaucer(QPainter &painter)
{
    painter.drawPath(mug());
    drawHandleAndSaucer(painter);
}

void drawCupAndSaucerFilled(QPainter &painter)
{
    fill(painter, mug());
    drawHandleAndSaucer(painter);
}

void drawLocationFilled(QPainter &painter)
{
    fill(painter, needle());
}

void drawLocationSlashed(QPainter &painter)
{
    painter.drawPath(needle());
    slash(painter);
}

void drawPinOnItsPlace(QPainter &painter)
{
    const QPainterPath stem = line({{12, 11.5}, {12, 18.25}});
    painter.drawEllipse(QPointF(12, 18), 9, 3.5);
    cut(painter, line({{12, 11.5}, {12, 16}}), 7);
    painter.drawPath(stem);
    fill(painter, circle({12, 6.75}, 4));
}

void drawThermometer(QPainter &painter)
{
    const QPainterPath tube = roundedRectangle({8.5, 2, 7, 15}, 3.5);
    painter.drawPath(tube.united(circle({12, 16.75}, 5.25)).simplified());
    painter.drawLine(QPointF(12, 8.5), QPointF(12, 16.75));
    dot(painter, {12, 16.75}, 2);
}

} // namespace

SymbolFamily placeFamily()
{
    return {
        {u"cup.and.saucer"_s, drawCupAndSaucer},
        {u"cup.and.saucer.fill"_s, drawCupAndSaucerFilled},
        {u"location.fill"_s, drawLocationFilled},
        {u"location.slash"_s, drawLocationSlashed},
        {u"mappin.and.ellipse"_s, drawPinOnItsPlace},
        {u"thermometer"_s, drawThermometer},
    };
}

} // namespace quorvel::SymbolDrawing
