#pragma once

#include <QLatin1StringView>

namespace quorvel {

/// The name under which the desktop knows the program: of its desktop entry and on the bus.
inline constexpr QLatin1StringView applicationId("com.zantho.quorvel");

/// The path of the program's object on the bus.
inline constexpr QLatin1StringView applicationObjectPath("/com/zantho/quorvel");

} // namespace quorvel
