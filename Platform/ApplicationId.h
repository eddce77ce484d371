#pragma once

#include <QLatin1StringView>

namespace quorvel {

/// The program's identifier on the desktop: the name of its desktop entry and of its bus name.
inline constexpr QLatin1StringView applicationId("com.zantho.quorvel");

/// The path of the program's object on the bus.
inline constexpr QLatin1StringView applicationObjectPath("/com/zantho/quorvel");

} // namespace quorvel
