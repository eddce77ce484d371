#include "Core/Support/Texts/RoundedNumber.h"

#include <cmath>

namespace quorvel {

using namespace Qt::StringLiterals;

QString roundedNumber(double number)
{
    // By way of an integer, so that nothing just below zero reads as "-0".
    return std::isfinite(number) ? QString::number(std::llround(number)) : u"–"_s;
}

} // namespace quorvel
