#include "Quorvel/TerminalModule/TerminalStart.h"

#include "Platform/Errors/LocalizedError.h"
#include "Platform/Terminal/StandardTerminal.h"
#include "Quorvel/ProgramModule.h"
#include "Quorvel/TerminalModule/TerminalPlugin.h"

#include <QCoreApplication>

#include <clocale>
#include <cstdlib>
#include <langinfo.h>

namespace quorvel::TerminalStart {

namespace {

/// All our texts are UTF-8. In another locale, such as that of a timer's job, Qt would choose this
/// locale itself and complain about it in the command's output.
void useUtf8()
{
    const QByteArrayView codeset =
        std::setlocale(LC_ALL, "") ? ::nl_langinfo(CODESET) : "unknown locale";
    if (codeset == "UTF-8")
        return;
    if (!qEnvironmentVariableIsEmpty("LC_ALL"))
        qputenv("LC_ALL", "C.UTF-8");
    qputenv("LC_CTYPE", "C.UTF-8");
}

} // namespace

int run(const QStringList &command, int &argc, char **argv)
{
    // Order: create the streams before the application opens its first file.
    StandardTerminal terminal;
    useUtf8();
    const QCoreApplication application(argc, argv);
    try {
        ProgramModule module(QStringLiteral(QUORVEL_TERMINAL_MODULE));
        return module.plugin<TerminalPlugin>().run(command, terminal);
    } catch (const LocalizedError &error) {
        terminal.note("quorvel: " + QByteArray(error.what()) + '\n');
        return EXIT_FAILURE;
    }
}

} // namespace quorvel::TerminalStart
