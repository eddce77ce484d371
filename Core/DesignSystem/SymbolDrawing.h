#pragma once

#include <QStringList>

class QPainter;

namespace quorvel::SymbolDrawing {

/// Our symbols, drawn by name on a grid of 24 by 24, black on whatever is there. One family: round
/// ends and joins, one weight of line, a unit of air around. Kept as drawing code, which costs
/// without a picture format to load, and is sharp at every size and scale.
inline constexpr double gridSize = 24;

[[nodiscard]] QStringList names();

/// An unknown name draws nothing and is reported as a warning.
void draw(QPainter &painter, const QString &name);

} // namespace quorvel::SymbolDrawing
