#include "Core/DesignSystem/Rendering/ImageRenderer.h"

#include "Core/DesignSystem/Rendering/ViewFactory.h"

#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickRenderControl>
#include <QQuickRenderTarget>
#include <QQuickWindow>
#include <QSize>
#include <QSizeF>
#include <QVariant>

namespace quorvel::ImageRenderer {

namespace {

using namespace Qt::StringLiterals;

/// A window that is never shown. Its content starts at its upper left corner.
class Canvas final
{
public:
    Canvas() { m_window.setColor(Qt::transparent); }

    [[nodiscard]] QQuickItem *root() { return m_window.contentItem(); }

    [[nodiscard]] QImage draw(const QQuickItem &item, qreal scale)
    {
        m_control.polishItems();
        const QSize size = item.size().toSize();
        QImage image((QSizeF(size) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(scale);
        auto target = QQuickRenderTarget::fromPaintDevice(&image);
        target.setDevicePixelRatio(scale);
        m_window.setRenderTarget(target);
        m_window.setGeometry({{}, size});
        m_control.sync();
        m_control.render();
        // Lifetime: the window lives as long as its content, which outlives the picture.
        m_window.setRenderTarget({});
        return image;
    }

private:
    QQuickRenderControl m_control;
    QQuickWindow m_window{&m_control};
};

} // namespace

QImage image(QQmlEngine &engine, const QString &module, const QString &view,
             const QVariantMap &requiredProperties, qreal scale)
{
    if (QQuickWindow::sceneGraphBackend() != "software"_L1)
        return {};
    Canvas canvas;
    QVariantMap properties = requiredProperties;
    properties.insert(u"parent"_s, QVariant::fromValue(canvas.root()));
    try {
        const auto object = ViewFactory::make(engine, module, view, properties);
        auto *item = qobject_cast<QQuickItem *>(object.get());
        return item ? canvas.draw(*item, scale) : QImage();
    } catch (const ViewError &) {
        // Silent: the caller gets no picture and reports that in its own way.
        return {};
    }
}

} // namespace quorvel::ImageRenderer
