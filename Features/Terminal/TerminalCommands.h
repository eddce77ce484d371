#pragma once

#include "Features/Terminal/ExitStatus.h"
#include "Features/Terminal/TerminalParts.h"
#include "Platform/Terminal/Terminal.h"

#include <QStringList>

/// All commands of the terminal.
namespace quorvel::TerminalCommands {

/// Runs the command that the first argument names, with the other arguments. Reports failures on
/// standard error.
[[nodiscard]] ExitStatus run(const QStringList &arguments, Terminal &terminal,
                             TerminalParts &parts);

} // namespace quorvel::TerminalCommands
