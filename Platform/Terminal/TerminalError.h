#pragma once

#include "Platform/Errors/LocalizedError.h"

namespace quorvel {

/// Output could not be written. The description has the system's reason.
class TerminalError final : public LocalizedError
{
public:
    /// An `errno` value.
    explicit TerminalError(int code)
        : m_code(code)
    {}

    /// The reader closed the pipe, as `head` does. Nothing to complain about.
    [[nodiscard]] bool isReaderGone() const;
    [[nodiscard]] QString errorDescription() const override;

    friend bool operator==(const TerminalError &left, const TerminalError &right)
    {
        return left.m_code == right.m_code;
    }

private:
    int m_code;
};

} // namespace quorvel
