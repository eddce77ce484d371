#include "Core/DesignSystem/Glyphs/ProgressDots.h"

#include <QPainter>
#include <QPointF>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quorvel {
namespace {

constexpr int dots = 8;
/// As parts of the side of the square.
constexpr double dotDiameter = 0.19;
constexpr double faintest = 0.18;
constexpr double fadePerStep = 0.14;

} // namespace

void ProgressDots::paint(QPainter *painter)
{
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(m_color);
    const double side = std::min(width(), height());
    const double radius = side * dotDiameter / 2;
    const double orbit = side / 2 - radius;
    for (int age = 0; age < dots; ++age) {
        const double angle = 2 * std::numbers::pi * (m_step - age) / dots;
        const QPointF around(std::sin(angle) * orbit, -std::cos(angle) * orbit);
        painter->setOpacity(std::max(faintest, 1 - age * fadePerStep));
        painter->drawEllipse(boundingRect().center() + around, radius, radius);
    }
}

void ProgressDots::setColor(const QColor &color)
{
    if (change(m_color, color))
        emit colorChanged();
}

void ProgressDots::setStep(int step)
{
    if (change(m_step, step))
        emit stepChanged();
}

} // namespace quorvel
