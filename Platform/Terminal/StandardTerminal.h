#pragma once

#include "Platform/Terminal/Terminal.h"

namespace quorvel {

/// The standard streams of the process, one terminal a process. Made before any file is opened: a
/// stream that is closed would be taken for the next file, and what is printed end up in it.
class StandardTerminal final : public Terminal
{
public:
    StandardTerminal();

    void print(QByteArrayView result) override;
    void note(QByteArrayView words) override;
    [[nodiscard]] bool isWatched() const override;
};

} // namespace quorvel
