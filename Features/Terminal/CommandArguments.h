#pragma once

#include "Platform/Errors/LocalizedError.h"

#include <QHash>
#include <QStringList>

#include <optional>
#include <utility>

namespace quorvel {

/// Arguments that a command does not understand, in a line for whoever typed them.
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

/// What a command takes, and what its help says.
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

    /// The command's own page.
    [[nodiscard]] QString help() const;
};

/// The options of one start of a command, read by its syntax. QCommandLineParser forgets the order
/// of the arguments, takes "--" and words its refusals itself.
class CommandArguments final
{
public:
    /// Reads up to "--help". Throws UsageError: for an option that is unknown or given twice, a
    /// value that is missing or not wanted, and for anything that is no option.
    [[nodiscard]] static CommandArguments parse(const CommandSyntax &syntax,
                                                const QStringList &arguments);

    [[nodiscard]] bool has(const QString &option) const { return m_values.contains(option); }
    /// Nothing when the option was not given.
    [[nodiscard]] std::optional<QString> value(const QString &option) const;

private:
    QHash<QString, QString> m_values;
};

} // namespace quorvel
