#pragma once

#include <QString>

namespace quorvel {

/// The nearest integer as text, halves away from zero, without grouping. "–" for a value that is
/// not a number.
[[nodiscard]] QString roundedNumber(double number);

} // namespace quorvel
