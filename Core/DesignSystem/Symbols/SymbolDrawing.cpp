#include "Core/DesignSystem/Symbols/SymbolDrawing.h"

#include "Core/DesignSystem/Symbols/SymbolFamily.h"

#include <QColor>
#include <QPainter>
#include <QPen>
#include <QRectF>
#include <QSizeF>

#include <algorithm>

namespace quorvel::SymbolDrawing {
namespace {

constexpr double lineWidth = 1.75;
/// In points. A thinner line would look pale on a screen of scale 1.
constexpr double thinnestLine = 1.2;

const SymbolFamily &drawings()
{
    static const SymbolFamily all = [] {
        SymbolFamily united;
        for (const SymbolFamily &family : {weatherFamily(), placeFamily(), markFamily(),
                                           networkFamily(), actionFamily(), paperFamily()})
            united.insert(family);
        return united;
    }();
    return all;
}

} // namespace

QStringList names()
{
    return drawings().keys();
}

void draw(QPainter &painter, const QString &name)
{
    const auto drawing = drawings().value(name);
    if (!drawing) {
        qWarning("No symbol is named \"%s\"", qUtf8Printable(name));
        return;
    }
    const double pointsPerUnit = painter.worldTransform().m11();
    const double width = std::max(lineWidth, thinnestLine / pointsPerUnit);
    painter.setPen(QPen(Qt::black, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    drawing(painter);
}

void drawTinted(QPainter &painter, const QString &name, const QColor &color, const QSizeF &size)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size.width() / gridSize, size.height() / gridSize);
    draw(painter, name);
    painter.restore();
    // Colour the drawing as a whole: overlapping strokes of a translucent colour would show.
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(QRectF({}, size), color);
}

} // namespace quorvel::SymbolDrawing
