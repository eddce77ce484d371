#pragma once

#include <QImage>

class QQmlEngine;

namespace quorvel {

class VisitDetail;

/// The picture that is shared of a visit.
namespace VisitPicture {

inline constexpr int pixelsPerPoint = 2;

/// Draws the card of the open visit as its view shows it, at `pixelsPerPoint`. Null when it cannot
/// be drawn.
[[nodiscard]] QImage image(QQmlEngine &engine, VisitDetail &detail);

} // namespace VisitPicture
} // namespace quorvel
