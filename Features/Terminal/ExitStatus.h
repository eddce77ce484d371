#pragma once

class QString;

namespace quorvel {

class Terminal;

/// How a command ended, for scripts: the numbers are a promise.
enum class ExitStatus {
    Done = 0,
    /// What went wrong stands on standard error.
    Failure = 1,
    Usage = 2,
    LocationDenied = 3,
    /// None was found near, or the position or the map could not be had.
    NoCafe = 4,
    AlreadyCheckedIn = 5,
};

/// Says on standard error what went wrong, in one line that gives the terminal no orders.
void complain(Terminal &terminal, const QString &sentence);

} // namespace quorvel
