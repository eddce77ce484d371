#include "Core/DesignSystem/Symbols/SymbolFamily.h"

#include <QPainter>
#include <QPointF>
#include <QPolygonF>

#include <cmath>
#include <numbers>

using namespace Qt::StringLiterals;

namespace quorvel::SymbolDrawing {
namespace {

QPainterPath fivePointedStar()
{
    constexpr double outerRadius = 10;
    constexpr double innerRadius = 4.75;
    QPolygonF corners;
    for (int corner = 0; corner < 10; ++corner) {
        const double angle = std::numbers::pi * (corner / 5.0 - 0.5);
        const double radius = corner % 2 == 0 ? outerRadius : innerRadius;
        corners << QPointF(12 + radius * std::cos(angle), 12.75 + radius * std::sin(angle));
    }
    QPainterPath path;
    path.addPolygon(corners);
    path.closeSubpath();
    return path;
}

void drawStar(QPainter &painter)
{
    painter.drawPath(fivePointedStar());
}

void drawStarFilled(QPainter &painter)
{
    fill(painter, fivePointedStar());
}

void drawCheckmark(QPainter &painter)
{
    painter.drawPath(line({{4, 12.75}, {9.5, 18.25}, {20, 6}}));
}

void drawCheckmarkInCircleFilled(QPainter &painter)
{
    fill(painter, circle({12, 12}, 9.75));
    cut(painter, line({{7.5, 12.5}, {10.75, 15.75}, {16.5, 8.75}}), painter.pen().widthF() + 0.25);
}

void drawCircle(QPainter &painter)
{
    painter.drawPath(circle({12, 12}, 9.75));
}

void drawCircleWithinCircle(QPainter &painter)
{
    drawCircle(painter);
    dot(painter, {12, 12}, 5.5);
}

void drawXmark(QPainter &painter)
{
    painter.drawLine(QPointF(5.25, 5.25), QPointF(18.75, 18.75));
    painter.drawLine(QPointF(18.75, 5.25), QPointF(5.25, 18.75));
}

void drawPlus(QPainter &painter)
{
    painter.drawLine(QPointF(12, 3.75), QPointF(12, 20.25));
    painter.drawLine(QPointF(3.75, 12), QPointF(20.25, 12));
}

void drawWarning(QPainter &painter)
{
    QPainterPath triangle = line({{12, 3.25}, {21.75, 20.25}, {2.25, 20.25}});
    triangle.closeSubpath();
    painter.drawPath(triangle);
    painter.drawLine(QPointF(12, 9.75), QPointF(12, 13.75));
    dot(painter, {12, 16.9}, 1.1);
}

void drawClock(QPainter &painter)
{
    drawCircle(painter);
    painter.drawPath(line({{12, 6.25}, {12, 12}, {15.5, 14}}));
}

} // namespace

SymbolFamily markFamily()
{
    return {
        {u"star"_s, drawStar},
        {u"star.fill"_s, drawStarFilled},
        {u"checkmark"_s, drawCheckmark},
        {u"checkmark.circle.fill"_s, drawCheckmarkInCircleFilled},
        {u"circle"_s, drawCircle},
        {u"largecircle.fill.circle"_s, drawCircleWithinCircle},
        {u"xmark"_s, drawXmark},
        {u"plus"_s, drawPlus},
        {u"exclamationmark.triangle"_s, drawWarning},
        {u"clock"_s, drawClock},
    };
}

} // namespace quorvel::SymbolDrawing
