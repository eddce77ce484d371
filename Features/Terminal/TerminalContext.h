#pragma once

#include "Features/MenuBar/Loop/MenuBarViewModel.h"

#include <functional>

namespace quorvel {

class CheckInRepository;
class FileManager;
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

/// What a command of the terminal works with. Each command asks only for what it needs, so that the
/// history waits for no service.
struct TerminalContext
{
    Terminal &terminal;
    /// The store's repository; throws LocalizedError when it cannot be opened.
    std::function<CheckInRepository &()> repository;
    /// What the daily loop asks, once the machine's radio is known; throws LocalizedError.
    std::function<MenuBarViewModel::Services()> loop;
    const FileManager &files;
    const Clock &clock;
};

/// Says on standard error what went wrong, in one line that gives the terminal no orders.
void complain(Terminal &terminal, const QString &sentence);

} // namespace quorvel
