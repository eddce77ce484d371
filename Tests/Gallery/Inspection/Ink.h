#pragma once

#include <QColor>
#include <QQuickItem>
#include <QRectF>

namespace quorvel::tests {

/// A text or a symbol on screen, as opposed to its background.
struct Ink
{
    QQuickItem *item;
    QRectF area; ///< of the letters, in the scene, as far as nothing clips it
    QColor colour;
    QString text; ///< a symbol's name for a symbol
    bool isText;
    bool isWhole; ///< nothing clips it
};

/// Everything visible in `view`.
[[nodiscard]] QList<Ink> inksIn(QQuickItem &view);

/// The part of `item`'s rectangle that its clipping ancestors show, in scene coordinates.
[[nodiscard]] QRectF unclipped(const QQuickItem &item, const QRectF &rectangle);

} // namespace quorvel::tests
