#pragma once

#include "Features/Terminal/CommandArguments.h"
#include "Features/Terminal/ExitStatus.h"
#include "Features/Terminal/TerminalParts.h"
#include "Platform/Terminal/Terminal.h"

/// "quorvel check-in": stores a visit from the terminal, as the form does.
namespace quorvel::CheckInCommand {

[[nodiscard]] const CommandSyntax &syntax();

/// Throws LocalizedError.
[[nodiscard]] ExitStatus run(const CommandArguments &arguments, Terminal &terminal,
                             TerminalParts &parts);

} // namespace quorvel::CheckInCommand
