#pragma once

#include "Features/Terminal/CommandArguments.h"
#include "Features/Terminal/TerminalContext.h"

/// "quorvel history": the visits, newest first.
namespace quorvel::HistoryCommand {

[[nodiscard]] const CommandSyntax &syntax();

/// Throws LocalizedError.
[[nodiscard]] ExitStatus run(const CommandArguments &arguments, const TerminalContext &context);

} // namespace quorvel::HistoryCommand
