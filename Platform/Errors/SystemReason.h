#pragma once

#include <QString>

#include <system_error>

namespace quorvel {

/// The system's own words for an `errno` value, for the end of a sentence of ours.
[[nodiscard]] inline QString systemReason(int code)
{
    return QString::fromLocal8Bit(std::generic_category().message(code));
}

} // namespace quorvel
