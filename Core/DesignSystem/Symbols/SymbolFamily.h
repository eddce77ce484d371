#pragma once

#include <QHash>
#include <QPainterPath>
#include <QString>

class QPainter;

namespace quorvel {

/// Symbols that are alike, by name. The drawing finds the pen and an empty brush ready.
using SymbolFamily = QHash<QString, void (*)(QPainter &)>;

/// The families, and what they have in common. Serves SymbolDrawing.
namespace SymbolDrawing {

[[nodiscard]] SymbolFamily weatherFamily();
[[nodiscard]] SymbolFamily placeFamily();
[[nodiscard]] SymbolFamily markFamily();
[[nodiscard]] SymbolFamily networkFamily();
[[nodiscard]] SymbolFamily actionFamily();
[[nodiscard]] SymbolFamily paperFamily();

/// The area together with its outline, so that it is as large as its unfilled sister.
void fill(QPainter &painter, const QPainterPath &path);
void dot(QPainter &painter, const QPointF &centre, double radius);
/// Takes away what is under the line, as wide as given.
void cut(QPainter &painter, const QPainterPath &line, double width);
/// Takes away the area and a gap around it: what is drawn there next stands in front.
void clear(QPainter &painter, const QPainterPath &area);
/// From the upper left to the lower right through all that is drawn: it is off, or not there.
void slash(QPainter &painter);

[[nodiscard]] QPainterPath circle(const QPointF &centre, double radius);
[[nodiscard]] QPainterPath line(std::initializer_list<QPointF> points);
[[nodiscard]] QPainterPath roundedRectangle(const QRectF &rectangle, double radius);

} // namespace SymbolDrawing
} // namespace quorvel
