#pragma once

#include <QString>

namespace quorvel {

/// A number with as few digits as read back as the same number, for texts that are compared or
/// sent: "10.7769", "106.0", "-0.0", "1e-05". Whatever the user's language.
[[nodiscard]] QString shortestDecimal(double number);

} // namespace quorvel
