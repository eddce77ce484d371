#pragma once

#include "Features/Terminal/CommandArguments.h"
#include "Features/Terminal/TerminalContext.h"

/// "quorvel export": all visits as a file for other programs.
namespace quorvel::ExportCommand {

[[nodiscard]] const CommandSyntax &syntax();

/// Throws LocalizedError.
[[nodiscard]] ExitStatus run(const CommandArguments &arguments, const TerminalContext &context);

} // namespace quorvel::ExportCommand
