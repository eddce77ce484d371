#pragma once

#include "Features/Terminal/CommandArguments.h"
#include "Features/Terminal/TerminalContext.h"

/// "quorvel check-in": a visit from the terminal, as the form would store it.
namespace quorvel::CheckInCommand {

[[nodiscard]] const CommandSyntax &syntax();

/// Throws LocalizedError.
[[nodiscard]] ExitStatus run(const CommandArguments &arguments, const TerminalContext &context);

} // namespace quorvel::CheckInCommand
