#include "Core/DesignSystem/Surfaces/SoftShadow.h"

#include "Core/DesignSystem/Theme/Palette.h"

#include <QPainter>
#include <QPen>
#include <QQuickItem>
#include <QRectF>

#include <algorithm>

namespace quorvel {
namespace {

constexpr int reachPoints = 18;
constexpr int downwards = 4;
constexpr double darkest = 0.12;

/// The shadow is darkest at the edge of the rectangle and fades to nothing at its reach.
QColor shade(double distance)
{
    const double rest = 1 - distance / reachPoints;
    QColor color = Palette::black;
    color.setAlphaF(float(darkest * rest * rest));
    return color;
}

} // namespace

SoftShadow::SoftShadow(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
}

void SoftShadow::paint(QPainter *painter)
{
    const QRectF caster =
        boundingRect().adjusted(reachPoints, reachPoints, -reachPoints, -reachPoints);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    // Rings of one point each. The area under the rectangle is not painted.
    for (int ring = -downwards; ring < reachPoints; ++ring) {
        const double distance = ring + 0.5;
        const double radius = std::max(0.0, m_cornerRadius + distance);
        painter->setPen(QPen(shade(std::max(0.0, distance)), 1));
        painter->drawRoundedRect(
            caster.translated(0, downwards).adjusted(-distance, -distance, distance, distance),
            radius, radius);
    }
}

void SoftShadow::setCornerRadius(qreal cornerRadius)
{
    if (m_cornerRadius == cornerRadius)
        return;
    m_cornerRadius = cornerRadius;
    update();
    emit cornerRadiusChanged();
}

qreal SoftShadow::reach() const
{
    return reachPoints;
}

} // namespace quorvel
