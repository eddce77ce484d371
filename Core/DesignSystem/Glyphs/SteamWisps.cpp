#include "Core/DesignSystem/Glyphs/SteamWisps.h"

#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QPointF>

#include <cmath>
#include <numbers>

namespace quorvel {
namespace {

constexpr int wisps = 3;
/// As parts of the item: of its height, its width and its width.
constexpr double wispLength = 0.5;
constexpr double sway = 0.07;
constexpr double thickness = 0.1;

/// A line that rises from `bottom` and sways once.
QPainterPath wisp(const QPointF &bottom, double length, double swing)
{
    QPainterPath path(bottom);
    const QPointF middle = bottom - QPointF(0, length / 2);
    path.quadTo(bottom + QPointF(swing * 2, -length / 4), middle);
    path.quadTo(middle + QPointF(-swing * 2, -length / 4), bottom - QPointF(0, length));
    return path;
}

} // namespace

void SteamWisps::paint(QPainter *painter)
{
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(m_color, width() * thickness, Qt::SolidLine, Qt::RoundCap));
    const double margin = width() * thickness;
    const double length = height() * wispLength;
    const double way = height() - length - 2 * margin;
    for (int index = 0; index < wisps; ++index) {
        const double turns = m_phase + double(index) * 2 / wisps;
        const double risen = turns - std::floor(turns);
        const QPointF bottom(width() * (index + 1) / (wisps + 1), height() - margin - way * risen);
        painter->setOpacity(std::sin(std::numbers::pi * (0.15 + 0.7 * risen)) *
                            (1 - risen * risen));
        painter->drawPath(wisp(bottom, length, width() * sway));
    }
}

void SteamWisps::setColor(const QColor &color)
{
    if (change(m_color, color))
        emit colorChanged();
}

void SteamWisps::setPhase(qreal phase)
{
    if (change(m_phase, phase))
        emit phaseChanged();
}

} // namespace quorvel
