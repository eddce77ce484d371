#include "Quorvel/TerminalModule/LiveTerminalPlugin.h"

#include "Core/Support/Tasks/Task.h"
#include "Features/Terminal/TerminalCommands.h"
#include "Platform/Terminal/Terminal.h"
#include "Quorvel/TerminalModule/LiveTerminal.h"

namespace quorvel {

int LiveTerminalPlugin::run(const QStringList &arguments, Terminal &terminal)
{
    int status = 0;
    {
        LiveTerminal live;
        status = int(TerminalCommands::run(arguments, terminal, live));
    }
    unwindAbandonedTasks();
    return status;
}

} // namespace quorvel
