#pragma once

#include "Core/Persistence/FakeCheckInRepository.h"
#include "Features/Terminal/TerminalCommands.h"
#include "Platform/Files/FakeFileManager.h"
#include "Platform/Terminal/FakeTerminal.h"
#include "Tests/Features/MenuBar/LoopWorld.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace quorvel::tests {

// What scripts rely on, as the documents number it.
inline constexpr int done = 0;
inline constexpr int failure = 1;
inline constexpr int usage = 2;
inline constexpr int locationDenied = 3;
inline constexpr int noCafe = 4;
inline constexpr int alreadyCheckedIn = 5;

/// A terminal in the loop's world, and what its commands left on it.
struct TerminalWorld
{
    /// Types the command; gives the exit status.
    int run(const QStringList &arguments)
    {
        terminal.printed.clear();
        terminal.noted.clear();
        return int(TerminalCommands::run(arguments, context()));
    }

    [[nodiscard]] QString printed() const { return QString::fromUtf8(terminal.printed); }
    [[nodiscard]] QString noted() const { return QString::fromUtf8(terminal.noted); }
    [[nodiscard]] QJsonObject printedJson() const
    {
        return QJsonDocument::fromJson(terminal.printed).object();
    }

    LoopWorld loop;
    FakeCheckInRepository store;
    FakeTerminal terminal;
    FakeFileManager files{{}};
    /// What keeps a part from being had.
    std::optional<FakeCheckInRepository::Failure> storeFailure;
    std::optional<FakeCheckInRepository::Failure> loopFailure;

private:
    [[nodiscard]] TerminalContext context()
    {
        return {.terminal = terminal,
                .repository = [this]() -> CheckInRepository & {
                    if (storeFailure)
                        throw FakeCheckInRepository::Failure(*storeFailure);
                    return store;
                },
                .loop =
                    [this] {
                        if (loopFailure)
                            throw FakeCheckInRepository::Failure(*loopFailure);
                        return MenuBarViewModel::Services{loop.location, loop.places, loop.weather,
                                                          loop.wifi, loop.keychain};
                    },
                .files = files,
                .clock = loop.clock};
    }
};

} // namespace quorvel::tests
