#pragma once

#include <QHash>
#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <QString>

#include <initializer_list>

class QPainter;

namespace quorvel {

/// Similar symbols, by name. The pen and an empty brush are set before the drawing starts.
using SymbolFamily = QHash<QString, void (*)(QPainter &)>;

/// The families of symbols and their common helpers. Serves SymbolDrawing.
namespace SymbolDrawing {

[[nodiscard]] SymbolFamily weatherFamily();
[[nodiscard]] SymbolFamily placeFamily();
[[nodiscard]] SymbolFamily markFamily();
[[nodiscard]] SymbolFamily networkFamily();
[[nodiscard]] SymbolFamily actionFamily();
[[nodiscard]] SymbolFamily paperFamily();

/// Fills the area with its outline, so that it is as large as the unfilled symbol.
void fill(QPainter &painter, const QPainterPath &path);
void dot(QPainter &painter, const QPointF &centre, double radius);
/// Erases a line of the given width.
void cut(QPainter &painter, const QPainterPath &line, double width);
/// Erases the area and a gap around it. The next shape there stands in front.
void clear(QPainter &painter, const QPainterPath &area);
/// Draws a slash from the upper left to the lower right: the thing is off or missing.
void slash(QPainter &painter);

[[nodiscard]] QPainterPath circle(const QPointF &centre, double radius);
[[nodiscard]] QPainterPath line(std::initializer_list<QPointF> points);
[[nodiscard]] QPainterPath roundedRectangle(const QRectF &rectangle, double radius);

} // namespace SymbolDrawing
} // namespace quorvel
