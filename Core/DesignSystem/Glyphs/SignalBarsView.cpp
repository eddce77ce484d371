#include "Core/DesignSystem/Glyphs/SignalBarsView.h"

#include "Core/DesignSystem/Theme/Theme.h"

#include <QPainter>
#include <QRectF>

#include <algorithm>

namespace quorvel {
namespace {

constexpr double barWidth = 3;
constexpr double barRadius = 1;
constexpr double barSpacing = 2;
constexpr int mostLit = 3;

} // namespace

void SignalBarsView::paint(QPainter *painter)
{
    const ThemeColor &color = *Theme::shared().color();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    for (int index = 0; index < m_heights.size(); ++index) {
        const double barHeight = m_heights[index];
        const QRectF bar(index * (barWidth + barSpacing), height() - barHeight, barWidth,
                         barHeight);
        painter->setBrush(isLit(index, m_bars) ? color.accent() : color.starOff());
        painter->drawRoundedRect(bar, barRadius, barRadius);
    }
}

bool SignalBarsView::isLit(int index, int bars)
{
    return index < std::min(bars, mostLit);
}

void SignalBarsView::setBars(int bars)
{
    if (change(m_bars, bars))
        emit barsChanged();
}

void SignalBarsView::setSize(qreal size)
{
    if (change(m_size, size)) {
        measure();
        emit sizeChanged();
    }
}

void SignalBarsView::setHeights(const QList<qreal> &heights)
{
    if (change(m_heights, heights)) {
        measure();
        emit heightsChanged();
    }
}

void SignalBarsView::measure()
{
    const auto count = double(m_heights.size());
    setImplicitSize(std::max(0.0, count * barWidth + (count - 1) * barSpacing), m_size);
}

} // namespace quorvel
