#pragma once

#include <QImage>
#include <QVariantMap>

class QQmlEngine;

/// Draws views that no window shows, for what is shared as a picture.
namespace quorvel::ImageRenderer {

/// Draws `view` of the module `Quorvel.<module>`, made with its required properties, in its own
/// size at `scale` pixels a point. Where it draws nothing the picture is transparent. Null when the
/// view cannot be made, or where something else than the processor draws.
[[nodiscard]] QImage image(QQmlEngine &engine, const QString &module, const QString &view,
                           const QVariantMap &requiredProperties, qreal scale);

} // namespace quorvel::ImageRenderer
