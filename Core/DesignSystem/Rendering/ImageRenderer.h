#pragma once

#include <QImage>
#include <QVariantMap>

class QQmlEngine;

/// Draws views off screen, for pictures that are shared.
namespace quorvel::ImageRenderer {

/// Draws `view` of the module `Quorvel.<module>` with its required properties, in its own size,
/// with `scale` pixels per point. The background is transparent. Returns a null image if the view
/// cannot be made, or if Qt Quick does not use its software renderer.
[[nodiscard]] QImage image(QQmlEngine &engine, const QString &module, const QString &view,
                           const QVariantMap &requiredProperties, qreal scale);

} // namespace quorvel::ImageRenderer
