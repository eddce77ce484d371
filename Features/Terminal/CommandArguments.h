#pragma once

#include "Platform/Errors/LocalizedError.h"

#include <QHash>
#include <QStringList>

#include <optional>
#include <utility>

namespace quorvel {

/// A command does not understand its arguments. The description is one line for the user.
class UsageError final : public LocalizedError
{
public:
    explicit UsageError(QString reason)
        : m_reason(std::move(reason))
    {}

    [[nodiscard]] QString errorDescription() const override { return m_reason; }

private:
    QString m_reason;
};

/// The arguments that a command accepts, with the texts of its help.
struct CommandSyntax
{
    struct Option
    {
        QString name;       ///< with its dashes
        QString value = {}; ///< what stands for its value in the help; empty: it takes none
        QString help = {};
    };

    QString name;
    QString summary; ///< one line, for the list of commands
    QList<Option> options;
    QString details; ///< whole lines

    /// The help page of the command.
    [[nodiscard]] QString help() const;
};

/// The options of one call of a command. QCommandLineParser forgets the order of the arguments,
/// accepts "--", and has its own error messages.
class CommandArguments final
{
public:
    /// Parses up to "--help". Throws UsageError for an unknown or repeated option, for a missing or
    /// unwanted value, and for anything that is not an option.
    [[nodiscard]] static CommandArguments parse(const CommandSyntax &syntax,
                                                const QStringList &arguments);

    [[nodiscard]] bool has(const QString &option) const { return m_values.contains(option); }
    /// Nothing if the option was not given.
    [[nodiscard]] std::optional<QString> value(const QString &option) const;

private:
    QHash<QString, QString> m_values;
};

} // namespace quorvel
