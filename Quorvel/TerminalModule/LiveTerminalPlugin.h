#pragma once

#include "Platform/Terminal/Terminal.h"
#include "Quorvel/TerminalModule/TerminalPlugin.h"

#include <QObject>

namespace quorvel {

/// The plugin object of the terminal's module.
class LiveTerminalPlugin final : public QObject, public TerminalPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QUORVEL_TERMINAL_PLUGIN_IID)
    Q_INTERFACES(quorvel::TerminalPlugin)

public:
    [[nodiscard]] int run(const QStringList &arguments, Terminal &terminal) override;
};

} // namespace quorvel
