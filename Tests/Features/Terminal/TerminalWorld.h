#pragma once

#include "Core/Persistence/FakeCheckInRepository.h"
#include "Features/Terminal/TerminalCommands.h"
#include "Platform/Files/FakeFileManager.h"
#include "Platform/Terminal/FakeTerminal.h"
#include "Tests/Features/MenuBar/Loop/LoopWorld.h"

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
    TerminalWorld();
    ~TerminalWorld();
    Q_DISABLE_COPY_MOVE(TerminalWorld)

    /// Types the command; gives the exit status.
    int run(const QStringList &arguments);

    [[nodiscard]] QString printed() const;
    [[nodiscard]] QString noted() const;
    [[nodiscard]] QJsonObject printedJson() const;

    LoopWorld loop;
    FakeCheckInRepository store;
    FakeTerminal terminal;
    FakeFileManager files{{}};
    /// What keeps a part from being had.
    std::optional<FakeCheckInRepository::Failure> storeFailure;
    std::optional<FakeCheckInRepository::Failure> loopFailure;

private:
    [[nodiscard]] TerminalContext context();
};

} // namespace quorvel::tests
