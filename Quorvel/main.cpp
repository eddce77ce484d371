#include "Core/Support/Tasks/Task.h"
#include "Platform/ApplicationId.h"
#include "Platform/SingleInstance/DBusSingleInstance.h"
#include "Platform/Termination/LogOut.h"
#include "Platform/Termination/TerminationListener.h"
#include "Quorvel/CommandLine.h"
#include "Quorvel/Endpoints.h"
#include "Quorvel/QuorvelApp.h"
#include "Quorvel/TerminalModule/TerminalStart.h"

#include <QApplication>
#include <QCoreApplication>
#include <QMetaObject>

#include <cstdio>
#include <cstdlib>
#include <optional>

namespace quorvel {

namespace {

QStringList argumentsOf(int count, char **values)
{
    QStringList arguments;
    for (int i = 1; i < count; ++i)
        arguments.append(QString::fromLocal8Bit(values[i]));
    return arguments;
}

void print(FILE *stream, const QString &text)
{
    std::fputs(text.toLocal8Bit().constData(), stream);
}

int refuse(const char *sentence)
{
    std::fprintf(stderr, "quorvel: %s\n", sentence);
    return EXIT_FAILURE;
}

/// Why an address in the environment is refused; absent if none is. It is reported at the start,
/// not at the first click, because the user who set the variable is watching then.
std::optional<EndpointError> endpointMistake()
{
    try {
        static_cast<void>(Endpoints::read(QProcessEnvironment::systemEnvironment()));
        return std::nullopt;
    } catch (const EndpointError &mistake) {
        return mistake;
    }
}

/// What a running program should open.
std::optional<Request> requestOf(CommandLine::Opening opening)
{
    switch (opening) {
    case CommandLine::Opening::AsNeeded:
    case CommandLine::Opening::Panel:
        return Request::Panel;
    case CommandLine::Opening::History:
        return Request::History;
    case CommandLine::Opening::Diagnostics:
        return Request::Diagnostics;
    case CommandLine::Opening::Nothing:
        return std::nullopt;
    }
    Q_UNREACHABLE();
}

/// Without a display Qt ends the process with a core dump. A sentence is better.
bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

/// What the first start opens. Without a request, the panel opens only if no icon shows.
void openFirst(QuorvelApp &app, CommandLine::Opening opening)
{
    const auto request = requestOf(opening);
    if (!request)
        app.waitUntilAsked();
    else if (opening != CommandLine::Opening::AsNeeded)
        app.open({.request = *request});
}

int runAsPrimary(SingleInstance &instance, CommandLine::Opening opening)
{
    QApplication::setQuitOnLastWindowClosed(false);
    QuorvelApp app;
    QObject::connect(&instance, &SingleInstance::activated, &app, &QuorvelApp::open);
    QMetaObject::invokeMethod(
        &app, [&app, opening] { openFirst(app, opening); }, Qt::QueuedConnection);
    return QCoreApplication::exec();
}

int run(CommandLine::Opening opening)
{
    // Order: as soon as the program is on the bus, it may be asked to end.
    const TerminationListener termination;
    QObject::connect(&termination, &TerminationListener::terminationRequested, qApp,
                     &QCoreApplication::quit);
    DBusSingleInstance instance(QProcessEnvironment::systemEnvironment(),
                                DBusSingleInstance::answerLimit, requestOf(opening));
    switch (instance.claim()) {
    case SingleInstance::Claim::HandedOver:
        return EXIT_SUCCESS;
    case SingleInstance::Claim::Unreachable:
        return refuse("it is running already, but does not answer.");
    case SingleInstance::Claim::Primary:
    case SingleInstance::Claim::NoBus:
        break;
    }
    const int status = runAsPrimary(instance, opening);
    unwindAbandonedTasks();
    return status;
}

} // namespace

} // namespace quorvel

int main(int argc, char **argv)
{
    const auto commandLine = quorvel::CommandLine::parse(quorvel::argumentsOf(argc, argv));
    quorvel::print(stdout, commandLine.output);
    quorvel::print(stderr, commandLine.errors);
    if (commandLine.exitStatus)
        return *commandLine.exitStatus;
    QApplication::setApplicationName(QStringLiteral("quorvel"));
    if (!commandLine.command.isEmpty())
        return quorvel::TerminalStart::run(commandLine.command, argc, argv);
    if (!quorvel::hasDisplay())
        return quorvel::refuse("there is no display to show it on.");
    if (const auto mistake = quorvel::endpointMistake())
        return quorvel::refuse(mistake->what());

    QApplication::setApplicationDisplayName(QStringLiteral("Quorvel"));
    QApplication::setDesktopFileName(quorvel::applicationId);
    const QApplication application(argc, argv);
    quorvel::LogOut::agree(application);
    return quorvel::run(commandLine.opening);
}
