#pragma once

#include <QStringList>

class QColor;
class QPainter;
class QSizeF;

namespace quorvel::SymbolDrawing {

/// Our symbols, drawn by name on a grid of 24 by 24, black on whatever is there. One family: round
/// ends and joins, one weight of line, a unit of air around, filled ones as large as their
/// outlines. Kept as drawing code, which needs no picture format to be loaded, and is sharp at
/// every size and scale.
inline constexpr double gridSize = 24;

[[nodiscard]] QStringList names();

/// An unknown name draws nothing and is reported as a warning.
void draw(QPainter &painter, const QString &name);

/// In one colour, as large as asked, on a canvas that is empty.
void drawTinted(QPainter &painter, const QString &name, const QColor &color, const QSizeF &size);

} // namespace quorvel::SymbolDrawing
