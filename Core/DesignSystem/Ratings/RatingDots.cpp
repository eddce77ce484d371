#include "Core/DesignSystem/Ratings/RatingDots.h"

#include "Core/DesignSystem/Ratings/RatingScale.h"
#include "Core/DesignSystem/Theme/Theme.h"

#include <QPainter>
#include <QQuickItem>
#include <QRectF>

namespace quorvel {
namespace {

constexpr double diameter = 5;
constexpr double dotSpacing = 2;

} // namespace

RatingDots::RatingDots(QQuickItem *parent)
    : ThemedItem(parent)
{
    const int count = RatingScale::highest();
    setImplicitSize(count * diameter + (count - 1) * dotSpacing, diameter);
}

void RatingDots::paint(QPainter *painter)
{
    const ThemeColor &color = *Theme::shared().color();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    for (int place = 1; place <= RatingScale::highest(); ++place) {
        painter->setBrush(RatingScale::isLit(place, m_score) ? color.accent() : color.starOff());
        painter->drawEllipse(QRectF((place - 1) * (diameter + dotSpacing), 0, diameter, diameter));
    }
}

void RatingDots::setScore(int score)
{
    if (change(m_score, score))
        emit scoreChanged();
}

} // namespace quorvel
