#pragma once

#include "Core/Persistence/FakeCheckInRepository.h"
#include "Features/Terminal/TerminalCommands.h"
#include "Features/Terminal/TerminalParts.h"
#include "Platform/Clock/Clock.h"
#include "Platform/Files/FakeFileManager.h"
#include "Platform/NotificationCenter/NotificationCenter.h"
#include "Platform/Terminal/FakeTerminal.h"
#include "Tests/Features/MenuBar/Loop/LoopWorld.h"

#include <QJsonObject>

#include <optional>

namespace quorvel::tests {

// The exit statuses that the documents promise to scripts.
inline constexpr int done = 0;
inline constexpr int failure = 1;
inline constexpr int usage = 2;
inline constexpr int locationDenied = 3;
inline constexpr int noCafe = 4;
inline constexpr int alreadyCheckedIn = 5;

/// A terminal in the loop's world, with the output of its commands.
struct TerminalWorld final : TerminalParts
{
    TerminalWorld();
    ~TerminalWorld() override;
    Q_DISABLE_COPY_MOVE(TerminalWorld)

    /// Runs the command and returns its exit status.
    int run(const QStringList &arguments);

    [[nodiscard]] QString printed() const;
    [[nodiscard]] QString noted() const;
    [[nodiscard]] QJsonObject printedJson() const;

    [[nodiscard]] CheckInRepository &repository() override;
    [[nodiscard]] Services services() override;
    [[nodiscard]] const FileManager &fileManager() override { return files; }
    [[nodiscard]] const Clock &clock() override { return loop.clock; }
    [[nodiscard]] NotificationCenter &notificationCenter() override { return center; }

    LoopWorld loop;
    FakeCheckInRepository store;
    FakeTerminal terminal;
    FakeFileManager files{{}};
    NotificationCenter center;
    /// The error that makes a part unavailable.
    std::optional<FakeCheckInRepository::Failure> storeFailure;
    std::optional<FakeCheckInRepository::Failure> loopFailure;
};

} // namespace quorvel::tests
