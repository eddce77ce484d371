#include "Core/Support/Task.h"
#include "Platform/ApplicationId.h"
#include "Platform/SingleInstance/DBusSingleInstance.h"
#include "Platform/Termination/LogOut.h"
#include "Platform/Termination/TerminationListener.h"
#include "Quorvel/CommandLine.h"
#include "Quorvel/Endpoints.h"
#include "Quorvel/QuorvelApp.h"
#include "Quorvel/TerminalStart.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>

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

/// Why the program may not go on the web as it is told to; absent when it may. Said at the start,
/// not at the first click, for whoever set the variable is watching then.
std::optional<EndpointError> endpointMistake()
{
    try {
        static_cast<void>(Endpoints::read(QProcessEnvironment::systemEnvironment()));
        return std::nullopt;
    } catch (const EndpointError &mistake) {
        return mistake;
    }
}

Request requestOf(const CommandLine &commandLine)
{
    return commandLine.window == CommandLine::Window::Diagnostics ? Request::Diagnostics
                                                                  : Request::Panel;
}

/// Qt ends the process with a core dump where there is no display; a sentence is kinder.
bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

int runAsPrimary(SingleInstance &instance, Request request)
{
    QApplication::setQuitOnLastWindowClosed(false);
    const TerminationListener termination;
    QObject::connect(&termination, &TerminationListener::terminationRequested, qApp,
                     &QCoreApplication::quit);
    QuorvelApp app;
    QObject::connect(&instance, &SingleInstance::activated, &app, &QuorvelApp::open);
    // The panel opens by itself only where no icon does.
    if (request != Request::Panel)
        QMetaObject::invokeMethod(
            &app, [&app, request] { app.open({.request = request}); }, Qt::QueuedConnection);
    return QCoreApplication::exec();
}

int run(Request request)
{
    DBusSingleInstance instance(QProcessEnvironment::systemEnvironment(),
                                DBusSingleInstance::answerLimit, request);
    switch (instance.claim()) {
    case SingleInstance::Claim::HandedOver:
        return EXIT_SUCCESS;
    case SingleInstance::Claim::Unreachable:
        return refuse("it is running already, but does not answer.");
    case SingleInstance::Claim::Primary:
    case SingleInstance::Claim::NoBus:
        break;
    }
    const int status = runAsPrimary(instance, request);
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
    return quorvel::run(quorvel::requestOf(commandLine));
}
