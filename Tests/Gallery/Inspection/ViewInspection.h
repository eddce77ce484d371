#pragma once

#include <QColor>
#include <QList>
#include <QRectF>
#include <QStringList>

class QQuickItem;

namespace quorvel::tests {

/// Checks a view on screen and returns its faults as sentences. Serves the gallery's test.
namespace ViewInspection {

/// Items that leave the window at its left or right.
[[nodiscard]] QStringList leavingSideways(QQuickItem &view);

/// Texts that are cut off, except the names in `elided`.
[[nodiscard]] QStringList cutTexts(QQuickItem &view, const QStringList &elided);

/// Texts and symbols that overlap.
[[nodiscard]] QStringList overlapping(QQuickItem &view);

/// Texts and symbols with too little contrast to their background.
[[nodiscard]] QStringList pale(QQuickItem &view);

/// Items that take the focus without a name or without a visible ring. Moves the focus.
[[nodiscard]] QStringList badlyFocused(QQuickItem &view);

} // namespace ViewInspection
} // namespace quorvel::tests
