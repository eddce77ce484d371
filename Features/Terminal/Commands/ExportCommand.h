#pragma once

#include "Features/Terminal/CommandArguments.h"
#include "Features/Terminal/ExitStatus.h"
#include "Features/Terminal/TerminalParts.h"
#include "Platform/Terminal/Terminal.h"

/// "quorvel export": writes all visits for other programs.
namespace quorvel::ExportCommand {

[[nodiscard]] const CommandSyntax &syntax();

/// Throws LocalizedError.
[[nodiscard]] ExitStatus run(const CommandArguments &arguments, Terminal &terminal,
                             TerminalParts &parts);

} // namespace quorvel::ExportCommand
