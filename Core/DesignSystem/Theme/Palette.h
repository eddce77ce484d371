#pragma once

#include <QColor>

namespace quorvel {

/// Coffee colours for what C++ paints. They are the same in light and in dark.
namespace Palette {

inline constexpr QColor accentPale{0xf0, 0xb2, 0x65}; ///< Caramel, paler.
inline constexpr QColor accent{0xe0, 0x8a, 0x3c};     ///< Caramel: what asks for attention.
inline constexpr QColor accentDeep{0xc8, 0x77, 0x2e}; ///< Caramel, darker.
inline constexpr QColor mocha{0x96, 0x63, 0x39};      ///< Stands out from white and from black.
inline constexpr QColor espresso{0x2b, 0x21, 0x1a};
inline constexpr QColor cream{0xf3, 0xe9, 0xdc};
inline constexpr QColor white{0xff, 0xff, 0xff};
inline constexpr QColor black{0x00, 0x00, 0x00};

} // namespace Palette
} // namespace quorvel
