#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace quorvel {

/// What the arguments of a start ask for, for `main` to carry out before there is an application
/// object or a display.
struct CommandLine
{
    enum class Opening {
        /// The panel of a program that runs already; this one's own only where no icon shows.
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
    /// A command of the terminal with its own arguments, which its module reads.
    QStringList command = {};
    /// What the program opens when it runs, or has the one that runs already open.
    Opening opening = Opening::AsNeeded;
    /// Nothing: the program is to run, or the command.
    std::optional<int> exitStatus = {};

    /// Reads the arguments, without the program's name. The toolkit's options for every platform
    /// pass in the forms that an application object takes out of its arguments.
    [[nodiscard]] static CommandLine parse(const QStringList &arguments);

    friend bool operator==(const CommandLine &, const CommandLine &) = default;
};

} // namespace quorvel
