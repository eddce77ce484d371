#pragma once

#include <QStringList>

/// Runs a command of the terminal. It needs no display, shows no icon and claims no session, so it
/// works beside a running program.
namespace quorvel::TerminalStart {

/// Runs the command with its arguments and returns the exit status of the process.
[[nodiscard]] int run(const QStringList &command, int &argc, char **argv);

} // namespace quorvel::TerminalStart
