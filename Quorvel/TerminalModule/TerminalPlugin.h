#pragma once

#include <QStringList>
#include <QtPlugin>

namespace quorvel {

class Terminal;

/// The entry of the module with the terminal's commands, which the icon does not need.
class TerminalPlugin
{
public:
    virtual ~TerminalPlugin() = default;

    /// Runs the command that the first argument names, with the other arguments. Returns the exit
    /// status. Needs an application object, but no display.
    [[nodiscard]] virtual int run(const QStringList &arguments, Terminal &terminal) = 0;
};

} // namespace quorvel

#define QUORVEL_TERMINAL_PLUGIN_IID "com.zantho.quorvel.TerminalPlugin"
Q_DECLARE_INTERFACE(quorvel::TerminalPlugin, QUORVEL_TERMINAL_PLUGIN_IID)
