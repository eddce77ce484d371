#include "Platform/Terminal/StandardTerminal.h"

#include "Platform/Terminal/TerminalError.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace quorvel {

namespace {

/// The system gives a new file the lowest free number. The placeholder for an output is read-only,
/// so that writing to it still fails.
void occupyClosedStreams()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        const int mode = stream == STDIN_FILENO ? O_WRONLY : O_RDONLY;
        if (::fcntl(stream, F_GETFD) < 0 && errno == EBADF)
            static_cast<void>(::open("/dev/null", mode));
    }
}

/// Returns zero, or the reason why it was not written completely.
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
    // The write reports a closed pipe, so that the command ends with its own message.
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
