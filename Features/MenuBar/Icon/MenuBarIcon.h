#pragma once

#include <QIcon>
#include <QPixmap>
#include <QSize>

namespace quorvel {

/// Paints the picture in the status area, for `MenuBarLabel`: the coffee cup with its dot. Its
/// colours are the same on light and dark panels.
namespace MenuBarIcon {

inline constexpr QSize sizePoints(28, 22);
inline constexpr qreal normalDotRadius = 3.5;
inline constexpr qreal largeDotRadius = normalDotRadius * 1.35;

/// The picture at this number of device pixels per point.
[[nodiscard]] QPixmap picture(qreal dotRadius, qreal scale);

/// The picture in every size that a status area asks for.
[[nodiscard]] QIcon icon(qreal dotRadius);

} // namespace MenuBarIcon
} // namespace quorvel
