#include "Platform/Terminal/StandardTerminal.h"

#include "Platform/Terminal/TerminalError.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace quorvel {

namespace {

/// The system gives the lowest number that is free. What stands in for an output can only be read,
/// so that writing there still fails.
void occupyClosedStreams()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        const int mode = stream == STDIN_FILENO ? O_WRONLY : O_RDONLY;
        if (::fcntl(stream, F_GETFD) < 0 && errno == EBADF)
            static_cast<void>(::open("/dev/null", mode));
    }
}

/// Zero, or why it was not written whole.
int write(int stream, QByteArrayView content)
{
    while (!content.isEmpty()) {
        const ssize_t count = ::write(stream, content.data(), size_t(content.size()));
        if (count < 0 && errno != EINTR)
            return errno;
        content = content.sliced(count < 0 ? 0 : count);
    }
    return 0;
}

bool canTakeLinesBack()
{
    const char *kind = ::getenv("TERM");
    return kind != nullptr && *kind != '\0' && QByteArrayView(kind) != "dumb";
}

} // namespace

StandardTerminal::StandardTerminal()
{
    occupyClosedStreams();
    // A reader that is gone is told by the write, and the command ends in its own words.
    ::signal(SIGPIPE, SIG_IGN);
}

void StandardTerminal::print(QByteArrayView result)
{
    if (const int error = write(STDOUT_FILENO, result))
        throw TerminalError(error);
}

void StandardTerminal::note(QByteArrayView words)
{
    static_cast<void>(write(STDERR_FILENO, words));
}

bool StandardTerminal::isWatched() const
{
    return ::isatty(STDERR_FILENO) == 1 && canTakeLinesBack();
}

} // namespace quorvel
