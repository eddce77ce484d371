#pragma once

#include <QColor>
#include <QList>
#include <QRectF>
#include <QStringList>

class QQuickItem;

namespace quorvel::tests {

/// What is wrong with a view as it stands on screen, as sentences; none when nothing is. Serves the
/// gallery's test.
namespace ViewInspection {

/// What leaves the window at its left or right.
[[nodiscard]] QStringList leavingSideways(QQuickItem &view);

/// What does not show all of its text, but for the names in `elided`.
[[nodiscard]] QStringList cutTexts(QQuickItem &view, const QStringList &elided);

/// Texts and symbols that stand on one another.
[[nodiscard]] QStringList overlapping(QQuickItem &view);

/// Texts and symbols too pale for where they stand.
[[nodiscard]] QStringList pale(QQuickItem &view);

/// What takes the focus without a name, or without showing it. Leaves the focus somewhere.
[[nodiscard]] QStringList badlyFocused(QQuickItem &view);

} // namespace ViewInspection
} // namespace quorvel::tests
