#include "Tests/Features/Terminal/TerminalWorld.h"

#include <QJsonDocument>

namespace quorvel::tests {

TerminalWorld::TerminalWorld() = default;
TerminalWorld::~TerminalWorld() = default;

int TerminalWorld::run(const QStringList &arguments)
{
    terminal.printed.clear();
    terminal.noted.clear();
    return int(TerminalCommands::run(arguments, terminal, *this));
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

CheckInRepository &TerminalWorld::repository()
{
    if (storeFailure)
        throw FakeCheckInRepository::Failure(*storeFailure);
    return store;
}

Services TerminalWorld::services()
{
    if (loopFailure)
        throw FakeCheckInRepository::Failure(*loopFailure);
    return loop.services();
}

} // namespace quorvel::tests
