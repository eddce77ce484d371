#pragma once

#include <QColor>
#include <QImage>
#include <QRectF>

namespace quorvel::tests {

/// The contrast of two colours by WCAG 2, from 1 (none) to 21.
namespace Contrast {

[[nodiscard]] double between(const QColor &colour, const QColor &other);

/// The lowest contrast of `ink`, which may be translucent, at the points of `area` where it changes
/// the picture. 1 if it changes nothing.
[[nodiscard]] double least(const QColor &ink, const QImage &with, const QImage &without,
                           const QRectF &area);

} // namespace Contrast
} // namespace quorvel::tests
