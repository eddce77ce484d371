#include "Core/Support/Texts/RoundedNumber.h"

#include <cmath>

namespace quorvel {

using namespace Qt::StringLiterals;

QString roundedNumber(double number)
{
    // The integer keeps numbers just below zero from reading as "-0".
    return std::isfinite(number) ? QString::number(std::llround(number)) : u"–"_s;
}

} // namespace quorvel
