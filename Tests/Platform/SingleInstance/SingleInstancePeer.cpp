#include "Platform/SingleInstance/DBusSingleInstance.h"

#include <QCoreApplication>
#include <QObject>
#include <QSocketNotifier>

#include <cstdio>
#include <optional>
#include <unistd.h>

using namespace quorvel;

namespace {

void say(const char *words)
{
    std::puts(words);
    std::fflush(stdout);
}

const char *nameOf(SingleInstance::Claim claim)
{
    switch (claim) {
    case SingleInstance::Claim::Primary:
        return "Primary";
    case SingleInstance::Claim::HandedOver:
        return "HandedOver";
    case SingleInstance::Claim::Unreachable:
        return "Unreachable";
    case SingleInstance::Claim::NoBus:
        return "NoBus";
    }
    Q_UNREACHABLE();
}

const char *nameOf(Request request)
{
    switch (request) {
    case Request::Panel:
        return "activated";
    case Request::History:
        return "activated for the history";
    case Request::Diagnostics:
        return "activated for diagnostics";
    }
    Q_UNREACHABLE();
}

} // namespace

/// Another start of the program, for the tests. It prints the result of its claim and, as the one
/// instance, the requests that it gets, until its input ends. With any argument it requests
/// nothing.
int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const auto request = argc > 1 ? std::nullopt : std::optional(Request::Panel);
    DBusSingleInstance instance(QProcessEnvironment::systemEnvironment(),
                                DBusSingleInstance::answerLimit, request);
    QObject::connect(&instance, &SingleInstance::activated, &instance,
                     [](const Activation &activation) { say(nameOf(activation.request)); });

    const SingleInstance::Claim claim = instance.claim();
    say(nameOf(claim));
    if (claim != SingleInstance::Claim::Primary)
        return 0;
    const QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &application, &QCoreApplication::quit);
    return QCoreApplication::exec();
}
