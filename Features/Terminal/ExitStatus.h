#pragma once

class QString;

namespace quorvel {

class Terminal;

/// How a command ended, for scripts. The numbers are a promise.
enum class ExitStatus {
    Done = 0,
    /// Standard error says what went wrong.
    Failure = 1,
    Usage = 2,
    LocationDenied = 3,
    /// None within reach, or the position or the map is not available.
    NoCafe = 4,
    AlreadyCheckedIn = 5,
};

/// Reports a failure on standard error, in one printable line.
void complain(Terminal &terminal, const QString &sentence);

} // namespace quorvel
