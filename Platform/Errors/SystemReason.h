#pragma once

#include <QString>

#include <system_error>

namespace quorvel {

/// The system's description of an `errno` value, for the end of a sentence.
[[nodiscard]] inline QString systemReason(int code)
{
    return QString::fromLocal8Bit(std::generic_category().message(code));
}

} // namespace quorvel
