#pragma once

#include "Features/Terminal/CommandArguments.h"
#include "Features/Terminal/TerminalContext.h"

/// "quorvel locate": the daily loop without a window.
namespace quorvel::LocateCommand {

[[nodiscard]] const CommandSyntax &syntax();

/// Throws LocalizedError.
[[nodiscard]] ExitStatus run(const CommandArguments &arguments, const TerminalContext &context);

} // namespace quorvel::LocateCommand
