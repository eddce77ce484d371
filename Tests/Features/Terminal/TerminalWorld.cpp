#include "Tests/Features/Terminal/TerminalWorld.h"

#include <QJsonDocument>

namespace quorvel::tests {

TerminalWorld::TerminalWorld() = default;
TerminalWorld::~TerminalWorld() = default;

int TerminalWorld::run(const QStringList &arguments)
{
    terminal.printed.clear();
    terminal.noted.clear();
    return int(TerminalCommands::run(arguments, context()));
}

QString TerminalWorld::printed() const
{
    return QString::fromUtf8(terminal.printed);
}

QString TerminalWorld::noted() const
{
    return QString::fromUtf8(terminal.noted);
}

QJsonObject TerminalWorld::printedJson() const
{
    return QJsonDocument::fromJson(terminal.printed).object();
}

TerminalContext TerminalWorld::context()
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
                    return loop.services();
                },
            .files = files,
            .clock = loop.clock};
}

} // namespace quorvel::tests
