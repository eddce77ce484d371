#pragma once

#include "Platform/Appearance/Appearance.h"

#include <QColor>

namespace quorvel {

/// A colour of the theme: one value for light surroundings, one for dark ones. Which of them is
/// seen is settled when it is drawn.
class DynamicColor final
{
public:
    /// Two opaque values written as 0xRRGGBB.
    DynamicColor(QRgb l, QRgb d);
    /// Red, green, blue and alpha of the light and of the dark value, each from 0 to 1.
    DynamicColor(float lr, float lg, float lb, float la, float dr, float dg, float db, float da);

    [[nodiscard]] QColor resolved(AppearanceStyle style) const;

private:
    QColor m_light;
    QColor m_dark;
};

} // namespace quorvel
