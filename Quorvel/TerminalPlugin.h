#pragma once

#include <QStringList>
#include <QtPlugin>

namespace quorvel {

class Terminal;

/// The way into the module of the terminal's commands, which an icon does without.
class TerminalPlugin
{
public:
    virtual ~TerminalPlugin() = default;

    /// Runs the command that the first argument names with the others, and gives the process's exit
    /// status. Needs an application object, and no display.
    [[nodiscard]] virtual int run(const QStringList &arguments, Terminal &terminal) = 0;
};

} // namespace quorvel

#define QUORVEL_TERMINAL_PLUGIN_IID "com.zantho.quorvel.TerminalPlugin"
Q_DECLARE_INTERFACE(quorvel::TerminalPlugin, QUORVEL_TERMINAL_PLUGIN_IID)
