#pragma once

#include <QString>

namespace quorvel {

/// A number as people read it: the nearest integer, halves away from zero, without grouping. "–"
/// where it is no number.
[[nodiscard]] QString roundedNumber(double number);

} // namespace quorvel
