#pragma once

#include "Core/Persistence/FakeCheckInRepository.h"
#include "Features/Terminal/TerminalCommands.h"
#include "Platform/Files/FakeFileManager.h"
#include "Platform/Terminal/FakeTerminal.h"
#include "Tests/Features/MenuBar/Loop/LoopWorld.h"

#include <QJsonObject>

namespace quorvel::tests {

// The exit statuses that the documents promise to scripts.
inline constexpr int done = 0;
inline constexpr int failure = 1;
inline constexpr int usage = 2;
inline constexpr int locationDenied = 3;
inline constexpr int noCafe = 4;
inline constexpr int alreadyCheckedIn = 5;

/// A terminal in the loop's world, with the output of its commands.
struct TerminalWorld
{
    TerminalWorld();
    ~TerminalWorld();
    Q_DISABLE_COPY_MOVE(TerminalWorld)

    /// Runs the command and returns its exit status.
    int run(const QStringList &arguments);

    [[nodiscard]] QString printed() const;
    [[nodiscard]] QString noted() const;
    [[nodiscard]] QJsonObject printedJson() const;

    LoopWorld loop;
    FakeCheckInRepository store;
    FakeTerminal terminal;
    FakeFileManager files{{}};
    /// The error that makes a part unavailable.
    std::optional<FakeCheckInRepository::Failure> storeFailure;
    std::optional<FakeCheckInRepository::Failure> loopFailure;

private:
    [[nodiscard]] TerminalContext context();
};

} // namespace quorvel::tests
