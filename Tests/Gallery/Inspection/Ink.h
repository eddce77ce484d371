#pragma once

#include <QColor>
#include <QQuickItem>
#include <QRectF>

namespace quorvel::tests {

/// A text or a symbol on screen: what is read, as against what it stands on.
struct Ink
{
    QQuickItem *item;
    QRectF area; ///< of the letters, in the scene, as far as nothing clips it
    QColor colour;
    QString text; ///< a symbol's name for a symbol
    bool isText;
    bool isWhole; ///< nothing clips it
};

/// All that is visible in `view`.
[[nodiscard]] QList<Ink> inksIn(QQuickItem &view);

/// Of `item`'s rectangle what its clipping ancestors let through, in the scene.
[[nodiscard]] QRectF unclipped(const QQuickItem &item, const QRectF &rectangle);

} // namespace quorvel::tests
