#pragma once

#include "Features/Terminal/CommandArguments.h"
#include "Features/Terminal/ExitStatus.h"
#include "Features/Terminal/TerminalParts.h"
#include "Platform/Terminal/Terminal.h"

/// "quorvel history": lists the visits, newest first.
namespace quorvel::HistoryCommand {

[[nodiscard]] const CommandSyntax &syntax();

/// Throws LocalizedError.
[[nodiscard]] ExitStatus run(const CommandArguments &arguments, Terminal &terminal,
                             TerminalParts &parts);

} // namespace quorvel::HistoryCommand
