#pragma once

#include <QStringList>

/// A start of the program that shows nothing: no display is asked for, no icon, and no session is
/// claimed, so that it works beside a program that runs.
namespace quorvel::TerminalStart {

/// Runs the command with its arguments and gives the exit status of the process.
[[nodiscard]] int run(const QStringList &command, int &argc, char **argv);

} // namespace quorvel::TerminalStart
