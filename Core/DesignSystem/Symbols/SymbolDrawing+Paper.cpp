#include "Core/DesignSystem/Symbols/SymbolFamily.h"

#include <QPainter>
#include <QPointF>

using namespace Qt::StringLiterals;

namespace quorvel::SymbolDrawing {
namespace {

void drawDocumentOnDocument(QPainter &painter)
{
    const QPainterPath front = roundedRectangle({8.5, 7.75, 12.25, 13.75}, 2.5);
    painter.drawPath(roundedRectangle({3.25, 2.5, 12.25, 13.75}, 2.5));
    clear(painter, front);
    painter.drawPath(front);
}

void drawPhoto(QPainter &painter)
{
    painter.drawPath(roundedRectangle({2.25, 4.25, 19.5, 15.5}, 2.75));
    dot(painter, {7.75, 9.25}, 1.9);
    painter.drawPath(
        line({{3.25, 17.75}, {8.5, 13.5}, {11.75, 16}, {16.25, 10.75}, {21.25, 15.25}}));
}

void drawNote(QPainter &painter)
{
    painter.drawPath(roundedRectangle({4, 2.5, 16, 19}, 2.75));
    painter.drawLine(QPointF(8, 8), QPointF(16, 8));
    painter.drawLine(QPointF(8, 12), QPointF(16, 12));
    painter.drawLine(QPointF(8, 16), QPointF(12.5, 16));
}

void drawCalendar(QPainter &painter)
{
    painter.drawPath(roundedRectangle({3, 4.5, 18, 16.75}, 2.75));
    painter.drawLine(QPointF(3, 9.5), QPointF(21, 9.5));
    painter.drawLine(QPointF(8, 2.25), QPointF(8, 5.75));
    painter.drawLine(QPointF(16, 2.25), QPointF(16, 5.75));
    for (const double x : {7.75, 12.0, 16.25})
        dot(painter, {x, 13.5}, 1.15);
    for (const double x : {7.75, 12.0})
        dot(painter, {x, 17.25}, 1.15);
}

} // namespace

SymbolFamily paperFamily()
{
    return {
        {u"doc.on.doc"_s, drawDocumentOnDocument},
        {u"photo"_s, drawPhoto},
        {u"note.text"_s, drawNote},
        {u"calendar"_s, drawCalendar},
    };
}

} // namespace quorvel::SymbolDrawing
