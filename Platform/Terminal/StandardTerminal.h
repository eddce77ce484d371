#pragma once

#include "Platform/Terminal/Terminal.h"

namespace quorvel {

/// The standard streams of the process. Make one per process, before any file is opened: otherwise
/// the next file would take the number of a closed stream, and output would go into it.
class StandardTerminal final : public Terminal
{
public:
    StandardTerminal();

    void print(QByteArrayView result) override;
    void note(QByteArrayView words) override;
    [[nodiscard]] bool isWatched() const override;
};

} // namespace quorvel
