#pragma once

#include "Platform/Appearance/Appearance.h"

#include <QColor>

namespace quorvel {

/// A colour of the theme, with one value for light and one for dark. Drawing picks the value.
class DynamicColor final
{
public:
    /// Two opaque values written as 0xRRGGBB.
    DynamicColor(QRgb l, QRgb d);
    /// Red, green, blue and alpha of the light and the dark value, each from 0 to 1.
    DynamicColor(float lr, float lg, float lb, float la, float dr, float dg, float db, float da);

    [[nodiscard]] QColor resolved(AppearanceStyle style) const;

private:
    QColor m_light;
    QColor m_dark;
};

} // namespace quorvel
