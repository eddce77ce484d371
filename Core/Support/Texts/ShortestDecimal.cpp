#include "Core/Support/Texts/ShortestDecimal.h"

#include <QLatin1Char>
#include <QLatin1String>

#include <array>
#include <charconv>
#include <cmath>

namespace quorvel {

namespace {

/// Outside these magnitudes a number is written with an exponent.
constexpr double leastPlain = 1e-4;
constexpr double leastBeyondPlain = 1e16;

std::chars_format formatOf(double number)
{
    const double magnitude = std::abs(number);
    const bool isPlain =
        magnitude == 0 || (magnitude >= leastPlain && magnitude < leastBeyondPlain);
    return isPlain ? std::chars_format::fixed : std::chars_format::scientific;
}

} // namespace

QString shortestDecimal(double number)
{
    std::array<char, 32> buffer;
    const char *end = std::to_chars(buffer.begin(), buffer.end(), number, formatOf(number)).ptr;
    const QString digits = QString::fromLatin1(buffer.data(), end - buffer.data());
    const bool isWhole = digits.back().isDigit() && !digits.contains(QLatin1Char('.')) &&
                         !digits.contains(QLatin1Char('e'));
    return isWhole ? digits + QLatin1String(".0") : digits;
}

} // namespace quorvel
