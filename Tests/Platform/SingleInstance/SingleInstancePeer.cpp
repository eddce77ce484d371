#include "Platform/SingleInstance/DBusSingleInstance.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <cstdio>
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

} // namespace

/// Another start of the program, for the tests: says what became of its claim and, as the one
/// instance, what it is asked for, until its input ends.
int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    DBusSingleInstance instance(QProcessEnvironment::systemEnvironment());
    QObject::connect(&instance, &SingleInstance::activated, &instance,
                     [](const Activation &activation) {
                         const bool isPanel = activation.request == Request::Panel;
                         say(isPanel ? "activated" : "activated for diagnostics");
                     });

    const SingleInstance::Claim claim = instance.claim();
    say(nameOf(claim));
    if (claim != SingleInstance::Claim::Primary)
        return 0;
    const QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &application, &QCoreApplication::quit);
    return QCoreApplication::exec();
}
