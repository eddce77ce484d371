#pragma once

#include "Core/DI/Services.h"

namespace quorvel {

class CheckInRepository;
class Clock;
class FileManager;
class NotificationCenter;

/// The parts of the program that commands use. Each is made when a command first asks for it, so
/// that the history waits for no service.
class TerminalParts
{
public:
    virtual ~TerminalParts() = default;

    /// Throws LocalizedError if the store cannot be opened.
    [[nodiscard]] virtual CheckInRepository &repository() = 0;
    /// Returns once the radio's state is known. Throws LocalizedError.
    [[nodiscard]] virtual Services services() = 0;
    [[nodiscard]] virtual const FileManager &fileManager() = 0;
    [[nodiscard]] virtual const Clock &clock() = 0;
    [[nodiscard]] virtual NotificationCenter &notificationCenter() = 0;
};

} // namespace quorvel
