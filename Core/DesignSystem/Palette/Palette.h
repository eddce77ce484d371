#pragma once

#include <QRgb>

namespace quorvel {

/// The coffee colours of what is painted in C++, and so keeps them in light and dark alike.
namespace Palette {

inline constexpr QRgb accent = 0xffe08a3c;     ///< Caramel: what asks for attention.
inline constexpr QRgb accentDeep = 0xffc8772e; ///< Caramel, darker.
inline constexpr QRgb mocha = 0xff966339;      ///< Stands out from white and from black.
inline constexpr QRgb espresso = 0xff2b211a;
inline constexpr QRgb cream = 0xfff3e9dc;
inline constexpr QRgb white = 0xffffffff;

} // namespace Palette
} // namespace quorvel
