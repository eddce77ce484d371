#pragma once

#include "Platform/Terminal/Terminal.h"
#include "Platform/Terminal/TerminalError.h"

#include <QByteArray>

#include <optional>

namespace quorvel {

/// Records what was written, and fails as a test says.
class FakeTerminal final : public Terminal
{
public:
    void print(QByteArrayView result) override
    {
        if (failure)
            throw TerminalError(*failure);
        printed.append(result);
    }
    void note(QByteArrayView words) override { noted.append(words); }
    [[nodiscard]] bool isWatched() const override { return watched; }

    QByteArray printed;
    QByteArray noted;
    bool watched = false;
    /// The `errno` with which printing fails.
    std::optional<int> failure;
};

} // namespace quorvel
