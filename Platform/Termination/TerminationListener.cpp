#include "Platform/Termination/TerminationListener.h"

#include <QSocketNotifier>
#include <sys/eventfd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <unistd.h>

namespace quorvel {

namespace {

constexpr std::array terminationSignals{SIGTERM, SIGINT, SIGHUP};

volatile std::sig_atomic_t eventDescriptor = -1;

void noteSignal(int)
{
    const int savedError = errno;
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = ::write(eventDescriptor, &one, sizeof one);
    errno = savedError;
}

/// A signal that our parent told us to ignore, as `nohup` does, stays ignored.
void handleAll(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int signal : terminationSignals) {
        struct sigaction current = {};
        if (::sigaction(signal, nullptr, &current) == 0 && current.sa_handler != SIG_IGN)
            ::sigaction(signal, &action, nullptr);
    }
}

} // namespace

TerminationListener::TerminationListener(QObject *parent)
    : QObject(parent)
    , m_event(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    Q_ASSERT(eventDescriptor == -1);
    eventDescriptor = m_event;
    auto *notifier = new QSocketNotifier(m_event, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &TerminationListener::drain);
    handleAll(&noteSignal);
}

TerminationListener::~TerminationListener()
{
    handleAll(SIG_DFL);
    eventDescriptor = -1;
    ::close(m_event);
}

void TerminationListener::drain()
{
    std::uint64_t count = 0;
    if (::read(m_event, &count, sizeof count) == sizeof count)
        emit terminationRequested();
}

} // namespace quorvel
