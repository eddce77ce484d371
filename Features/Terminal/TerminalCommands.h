#pragma once

#include "Features/Terminal/ExitStatus.h"
#include "Features/Terminal/TerminalParts.h"
#include "Platform/Terminal/Terminal.h"

#include <QStringList>

/// All that the program does in a terminal.
namespace quorvel::TerminalCommands {

/// Runs the command that the first argument names with the others, and says on standard error what
/// keeps it from its end.
[[nodiscard]] ExitStatus run(const QStringList &arguments, Terminal &terminal,
                             TerminalParts &parts);

} // namespace quorvel::TerminalCommands
