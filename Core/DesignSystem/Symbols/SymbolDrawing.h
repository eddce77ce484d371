#pragma once

#include <QStringList>

class QColor;
class QPainter;
class QSizeF;

namespace quorvel::SymbolDrawing {

/// Draws our symbols by name, in black, on a grid of 24 by 24. They are one family: round ends and
/// joins, one line weight, a margin of one unit, filled symbols as large as their outlines. Drawing
/// code needs no plug-in for a picture format, and is sharp at every size and scale.
inline constexpr double gridSize = 24;

[[nodiscard]] QStringList names();

/// An unknown name draws nothing and logs a warning.
void draw(QPainter &painter, const QString &name);

/// Draws the symbol in one colour and the given size on an empty canvas.
void drawTinted(QPainter &painter, const QString &name, const QColor &color, const QSizeF &size);

} // namespace quorvel::SymbolDrawing
