#pragma once

#include "Core/Support/ViewState.h"
#include "Features/MenuBar/Loop/LocatedSnapshot.h"
#include "Features/Terminal/CommandArguments.h"
#include "Features/Terminal/ExitStatus.h"
#include "Features/Terminal/TerminalParts.h"
#include "Platform/Terminal/Terminal.h"

/// "quorvel locate": runs the daily loop without a window.
namespace quorvel::LocateCommand {

[[nodiscard]] const CommandSyntax &syntax();

/// Throws LocalizedError.
[[nodiscard]] ExitStatus run(const CommandArguments &arguments, Terminal &terminal,
                             TerminalParts &parts);

} // namespace quorvel::LocateCommand
