#pragma once

#include <QImage>

class QQmlEngine;

namespace quorvel {

class VisitDetail;

/// The picture that is shared of a visit.
namespace VisitPicture {

/// Draws the card of the open visit as its view shows it, at two pixels a point. Null when it
/// cannot be drawn.
[[nodiscard]] QImage image(QQmlEngine &engine, VisitDetail &detail);

} // namespace VisitPicture
} // namespace quorvel
