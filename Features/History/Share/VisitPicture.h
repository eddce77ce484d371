#pragma once

#include <QImage>

class QQmlEngine;

namespace quorvel {

class VisitDetail;

/// Makes the shared picture of a visit.
namespace VisitPicture {

inline constexpr int pixelsPerPoint = 2;

/// Draws the open visit's card as its view shows it, at `pixelsPerPoint`. Null if it cannot be
/// drawn.
[[nodiscard]] QImage image(QQmlEngine &engine, VisitDetail &detail);

} // namespace VisitPicture
} // namespace quorvel
