#include "Core/DesignSystem/Symbols/SymbolFamily.h"

#include <QBrush>
#include <QPainter>
#include <QPen>
#include <QPointF>
#include <QPolygonF>
#include <QRectF>

#include <initializer_list>

namespace quorvel {
namespace {

/// The gap between a shape in front and the shapes behind it.
constexpr double gap = 2.75;

void strokeAway(QPainter &painter, const QPainterPath &path, const QBrush &brush, double width)
{
    painter.save();
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    QPen pen = painter.pen();
    pen.setWidthF(width);
    painter.setPen(pen);
    painter.setBrush(brush);
    painter.drawPath(path);
    painter.restore();
}

} // namespace

void SymbolDrawing::fill(QPainter &painter, const QPainterPath &path)
{
    painter.save();
    painter.setBrush(painter.pen().color());
    painter.drawPath(path);
    painter.restore();
}

void SymbolDrawing::dot(QPainter &painter, const QPointF &centre, double radius)
{
    painter.fillPath(circle(centre, radius), painter.pen().color());
}

void SymbolDrawing::cut(QPainter &painter, const QPainterPath &line, double width)
{
    strokeAway(painter, line, Qt::NoBrush, width);
}

void SymbolDrawing::clear(QPainter &painter, const QPainterPath &area)
{
    strokeAway(painter, area, painter.pen().color(), painter.pen().widthF() + gap);
}

void SymbolDrawing::slash(QPainter &painter)
{
    const QPainterPath across = line({{3.5, 3.5}, {20.5, 20.5}});
    cut(painter, across, painter.pen().widthF() + gap);
    painter.drawPath(across);
}

QPainterPath SymbolDrawing::circle(const QPointF &centre, double radius)
{
    QPainterPath path;
    path.addEllipse(centre, radius, radius);
    return path;
}

QPainterPath SymbolDrawing::line(std::initializer_list<QPointF> points)
{
    QPainterPath path;
    path.addPolygon(QPolygonF(points));
    return path;
}

QPainterPath SymbolDrawing::roundedRectangle(const QRectF &rectangle, double radius)
{
    QPainterPath path;
    path.addRoundedRect(rectangle, radius, radius);
    return path;
}

} // namespace quorvel
