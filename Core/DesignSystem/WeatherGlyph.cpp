#include "Core/DesignSystem/WeatherGlyph.h"

#include "Core/DesignSystem/SymbolDrawing.h"
#include "Core/DesignSystem/Theme.h"
#include "Core/DesignSystem/WeatherCondition.h"

namespace quorvel {
namespace {

/// The same in light and dark.
constexpr QColor rainTint(0x5E, 0x9C, 0xC9);

QColor color(WeatherTint tint)
{
    switch (tint) {
    case WeatherTint::Sun:
        return Theme::shared().color()->starOn();
    case WeatherTint::Cloud:
        return Theme::shared().color()->textSecondary();
    case WeatherTint::Rain:
        return rainTint;
    }
    Q_UNREACHABLE();
}

} // namespace

void WeatherGlyph::paint(QPainter *painter)
{
    const WeatherCondition condition = WeatherCondition::config(m_code, m_isDay);
    SymbolDrawing::drawTinted(*painter, condition.symbol, color(condition.tint),
                              {width(), height()});
}

void WeatherGlyph::setCode(int code)
{
    if (change(m_code, code))
        emit conditionChanged();
}

void WeatherGlyph::setIsDay(bool isDay)
{
    if (change(m_isDay, isDay))
        emit conditionChanged();
}

void WeatherGlyph::setSize(qreal size)
{
    if (change(m_size, size)) {
        setImplicitSize(size, size);
        emit sizeChanged();
    }
}

QString WeatherGlyph::conditionLabel() const
{
    return WeatherCondition::config(m_code, m_isDay).label;
}

} // namespace quorvel
