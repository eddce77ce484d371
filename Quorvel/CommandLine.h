#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace quorvel {

/// Parses the arguments of a start, for `main`, before there is an application object or a display.
struct CommandLine
{
    enum class Opening {
        /// The panel of a running program. A first start opens its own only if no icon shows.
        AsNeeded,
        /// As at a login.
        Nothing,
        Panel,
        History,
        Diagnostics
    };

    /// For standard output.
    QString output = {};
    /// For standard error.
    QString errors = {};
    /// A command of the terminal with its arguments, which its module reads.
    QStringList command = {};
    /// What this program, or the one that already runs, should open.
    Opening opening = Opening::AsNeeded;
    /// Absent if the program or the command should run.
    std::optional<int> exitStatus = {};

    /// Parses the arguments, without the program's name. Qt's options for every platform pass, in
    /// the forms that an application object removes.
    [[nodiscard]] static CommandLine parse(const QStringList &arguments);

    friend bool operator==(const CommandLine &, const CommandLine &) = default;
};

} // namespace quorvel
