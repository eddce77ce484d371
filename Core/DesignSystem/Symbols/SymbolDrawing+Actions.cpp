#include "Core/DesignSystem/Symbols/SymbolFamily.h"

#include <QPainter>
#include <QPointF>

using namespace Qt::StringLiterals;

namespace quorvel::SymbolDrawing {
namespace {

void drawChevronLeft(QPainter &painter)
{
    painter.drawPath(line({{15.75, 4.25}, {8, 12}, {15.75, 19.75}}));
}

void drawChevronRight(QPainter &painter)
{
    painter.drawPath(line({{8.25, 4.25}, {16, 12}, {8.25, 19.75}}));
}

void drawArrowDownToLine(QPainter &painter)
{
    painter.drawLine(QPointF(12, 2.75), QPointF(12, 15.5));
    painter.drawPath(line({{6.5, 10}, {12, 15.5}, {17.5, 10}}));
    painter.drawLine(QPointF(4, 20.75), QPointF(20, 20.75));
}

void drawArrowUpFromSquare(QPainter &painter)
{
    QPainterPath square({8, 9});
    square.lineTo(6.5, 9);
    square.quadTo(4.25, 9, 4.25, 11.25);
    square.lineTo(4.25, 19);
    square.quadTo(4.25, 21.25, 6.5, 21.25);
    square.lineTo(17.5, 21.25);
    square.quadTo(19.75, 21.25, 19.75, 19);
    square.lineTo(19.75, 11.25);
    square.quadTo(19.75, 9, 17.5, 9);
    square.lineTo(16, 9);
    painter.drawPath(square);
    painter.drawLine(QPointF(12, 2.75), QPointF(12, 14.75));
    painter.drawPath(line({{8.25, 6.25}, {12, 2.5}, {15.75, 6.25}}));
}

void drawTrash(QPainter &painter)
{
    painter.drawLine(QPointF(3.5, 6.25), QPointF(20.5, 6.25));
    painter.drawPath(line({{8.75, 6.25}, {9.5, 2.75}, {14.5, 2.75}, {15.25, 6.25}}));
    QPainterPath can({5.5, 6.25});
    can.lineTo(6.4, 19.25);
    can.quadTo(6.55, 21.25, 8.5, 21.25);
    can.lineTo(15.5, 21.25);
    can.quadTo(17.45, 21.25, 17.6, 19.25);
    can.lineTo(18.5, 6.25);
    painter.drawPath(can);
    painter.drawLine(QPointF(10, 10.25), QPointF(10.25, 17.25));
    painter.drawLine(QPointF(14, 10.25), QPointF(13.75, 17.25));
}

} // namespace

SymbolFamily actionFamily()
{
    return {
        {u"chevron.left"_s, drawChevronLeft},
        {u"chevron.right"_s, drawChevronRight},
        {u"arrow.down.to.line"_s, drawArrowDownToLine},
        {u"square.and.arrow.up"_s, drawArrowUpFromSquare},
        {u"trash"_s, drawTrash},
    };
}

} // namespace quorvel::SymbolDrawing
