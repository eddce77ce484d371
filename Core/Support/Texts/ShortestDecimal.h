#pragma once

#include <QString>

namespace quorvel {

/// The shortest text that reads back as the same number, for texts that are compared or sent:
/// "10.7769", "106.0", "-0.0", "1e-05". Independent of the user's language.
[[nodiscard]] QString shortestDecimal(double number);

} // namespace quorvel
