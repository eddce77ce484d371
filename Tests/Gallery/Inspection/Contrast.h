#pragma once

#include <QColor>
#include <QImage>
#include <QRectF>

namespace quorvel::tests {

/// How well one colour is told from another, from 1 (not at all) to 21, as WCAG 2 reckons.
namespace Contrast {

[[nodiscard]] double between(const QColor &colour, const QColor &other);

/// The least that `ink`, which may be translucent, has wherever in `area` it changes the picture
/// from what it is without it; 1 where it changes nothing.
[[nodiscard]] double least(const QColor &ink, const QImage &with, const QImage &without,
                           const QRectF &area);

} // namespace Contrast
} // namespace quorvel::tests
