#include "Core/DesignSystem/Theme/DynamicColor.h"

namespace quorvel {

DynamicColor::DynamicColor(QRgb l, QRgb d)
    : m_light(QColor::fromRgb(l))
    , m_dark(QColor::fromRgb(d))
{}

DynamicColor::DynamicColor(float lr, float lg, float lb, float la, float dr, float dg, float db,
                           float da)
    : m_light(QColor::fromRgbF(lr, lg, lb, la))
    , m_dark(QColor::fromRgbF(dr, dg, db, da))
{}

QColor DynamicColor::resolved(AppearanceStyle style) const
{
    return style == AppearanceStyle::Dark ? m_dark : m_light;
}

} // namespace quorvel
