#include "Features/Terminal/TerminalCommands.h"

#include "Features/Terminal/Commands/CheckInCommand.h"
#include "Features/Terminal/Commands/ExportCommand.h"
#include "Features/Terminal/Commands/HistoryCommand.h"
#include "Features/Terminal/Commands/LocateCommand.h"
#include "Platform/Terminal/Terminal.h"
#include "Platform/Terminal/TerminalError.h"

#include <algorithm>
#include <array>

namespace quorvel::TerminalCommands {

using namespace Qt::StringLiterals;

namespace {

struct Command
{
    const CommandSyntax &(*syntax)();
    ExitStatus (*run)(const CommandArguments &, Terminal &, TerminalParts &);
};

constexpr std::array commands{
    Command{&LocateCommand::syntax, &LocateCommand::run},
    Command{&HistoryCommand::syntax, &HistoryCommand::run},
    Command{&ExportCommand::syntax, &ExportCommand::run},
    Command{&CheckInCommand::syntax, &CheckInCommand::run},
};

const Command &commandNamed(const QString &name)
{
    const auto *const found = std::ranges::find_if(
        commands, [&](const Command &command) { return command.syntax().name == name; });
    if (found == commands.end())
        throw UsageError(u"unknown command “%1”"_s.arg(name));
    return *found;
}

ExitStatus runParsed(const QStringList &arguments, Terminal &terminal, TerminalParts &parts)
{
    const Command &command = commandNamed(arguments.constFirst());
    const auto &syntax = command.syntax();
    const auto parsed = CommandArguments::parse(syntax, arguments.sliced(1));
    if (parsed.has(u"--help"_s)) {
        terminal.print(syntax.help().toUtf8());
        return ExitStatus::Done;
    }
    return command.run(parsed, terminal, parts);
}

} // namespace

ExitStatus run(const QStringList &arguments, Terminal &terminal, TerminalParts &parts)
{
    try {
        return runParsed(arguments, terminal, parts);
    } catch (const UsageError &error) {
        complain(terminal, error.errorDescription());
        const QString advice = u"Try “quorvel %1 --help”.\n"_s.arg(arguments.constFirst());
        terminal.note(advice.toUtf8());
        return ExitStatus::Usage;
    } catch (const TerminalError &error) {
        if (!error.isReaderGone())
            complain(terminal, error.errorDescription());
    } catch (const LocalizedError &error) {
        complain(terminal, error.errorDescription());
    }
    return ExitStatus::Failure;
}

} // namespace quorvel::TerminalCommands
