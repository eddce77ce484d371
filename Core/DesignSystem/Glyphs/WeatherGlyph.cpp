#include "Core/DesignSystem/Glyphs/WeatherGlyph.h"

#include "Core/DesignSystem/Glyphs/WeatherCondition.h"
#include "Core/DesignSystem/Symbols/SymbolDrawing.h"
#include "Core/DesignSystem/Theme/Theme.h"

#include <QColor>
#include <QPainter>

namespace quorvel {
namespace {

/// The same in light and dark.
constexpr QColor rainTint(0x5E, 0x9C, 0xC9);

QColor color(WeatherTint tint, const ThemeColor &theme)
{
    switch (tint) {
    case WeatherTint::Sun:
        return theme.starOn();
    case WeatherTint::Cloud:
        return theme.textSecondary();
    case WeatherTint::Rain:
        return rainTint;
    }
    Q_UNREACHABLE();
}

} // namespace

void WeatherGlyph::paint(QPainter *painter)
{
    const WeatherCondition condition = WeatherCondition::config(m_code, m_isDay);
    Theme &theme = Theme::shared();
    const ThemeColor &colors = m_isOnWhite ? *theme.lightColor() : *theme.color();
    SymbolDrawing::drawTinted(*painter, condition.symbol, color(condition.tint, colors),
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

void WeatherGlyph::setOnWhite(bool isOnWhite)
{
    if (change(m_isOnWhite, isOnWhite))
        emit isOnWhiteChanged();
}

QString WeatherGlyph::conditionLabel() const
{
    return WeatherCondition::config(m_code, m_isDay).label;
}

} // namespace quorvel
