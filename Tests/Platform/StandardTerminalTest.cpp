#include "Platform/Terminal/StandardTerminal.h"

#include "Platform/Terminal/TerminalError.h"

#include <QTest>
#include <sys/wait.h>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

/// The result of a child process that ran the action with its own streams.
struct Ended
{
    int status = -1;
    QByteArray output;
};

QByteArray contentOf(int stream)
{
    QByteArray content;
    char piece[4096];
    for (ssize_t count = 0; (count = ::read(stream, piece, sizeof piece)) > 0;)
        content.append(piece, count);
    return content;
}

template <class Action>
Ended inChild(int stream, Action action)
{
    int ends[2];
    if (::pipe(ends) != 0)
        qFatal("no pipe");
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(ends[1], stream);
        ::close(ends[0]);
        ::close(ends[1]);
        ::_exit(action());
    }
    ::close(ends[1]);
    Ended ended;
    ended.output = contentOf(ends[0]);
    ::close(ends[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    ended.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return ended;
}

/// The `errno` behind the error, found by its description.
int failureOf(StandardTerminal &terminal)
{
    try {
        terminal.print("text");
    } catch (const TerminalError &error) {
        for (const int code : {EPIPE, EBADF, ENOSPC}) {
            if (error == TerminalError(code))
                return code;
        }
        return -1;
    }
    return 0;
}

} // namespace

class StandardTerminalTest final : public QObject
{
    Q_OBJECT

private slots:
    void resultsGoToStandardOutput()
    {
        const auto ended = inChild(STDOUT_FILENO, [] {
            StandardTerminal terminal;
            terminal.print("cà phê\n");
            terminal.note("aside\n");
            return 7;
        });
        QCOMPARE(ended.output, QByteArray("cà phê\n"));
        QCOMPARE(ended.status, 7);
    }

    void notesGoToStandardError()
    {
        const auto ended = inChild(STDERR_FILENO, [] {
            StandardTerminal terminal;
            terminal.note("aside\n");
            return 0;
        });
        QCOMPARE(ended.output, QByteArray("aside\n"));
    }

    void muchIsPrintedWhole()
    {
        const QByteArray much(5'000'000, 'x');
        const auto ended = inChild(STDOUT_FILENO, [&much] {
            StandardTerminal terminal;
            terminal.print(much);
            return 0;
        });
        QCOMPARE(ended.output.size(), much.size());
    }

    void aReaderThatIsGoneEndsNothingButTheWrite()
    {
        const auto ended = inChild(STDERR_FILENO, [] {
            StandardTerminal terminal;
            int ends[2];
            static_cast<void>(::pipe(ends));
            ::dup2(ends[1], STDOUT_FILENO);
            ::close(ends[0]);
            return failureOf(terminal);
        });
        QCOMPARE(ended.status, EPIPE);
        QVERIFY(TerminalError(EPIPE).isReaderGone());
        QVERIFY(!TerminalError(ENOSPC).isReaderGone());
    }

    void aFullDiskIsAnError()
    {
        const auto ended = inChild(STDERR_FILENO, [] {
            StandardTerminal terminal;
            ::dup2(::open("/dev/full", O_WRONLY), STDOUT_FILENO);
            return failureOf(terminal);
        });
        QCOMPARE(ended.status, ENOSPC);
        QCOMPARE(TerminalError(ENOSPC).errorDescription(),
                 u"The output could not be written: No space left on device."_s);
    }

    void anOutputThatIsClosedIsNotTakenForTheNextFile()
    {
        const auto ended = inChild(STDERR_FILENO, [] {
            ::close(STDOUT_FILENO);
            StandardTerminal terminal;
            if (::open("/dev/null", O_WRONLY) <= STDERR_FILENO)
                return -1;
            return failureOf(terminal);
        });
        QCOMPARE(ended.status, EBADF);
    }

    void nobodyWatchesAPipe()
    {
        const auto ended = inChild(STDERR_FILENO, [] {
            const StandardTerminal terminal;
            return terminal.isWatched() ? 1 : 0;
        });
        QCOMPARE(ended.status, 0);
    }

    void aScreenThatTakesLinesBackIsWatched_data()
    {
        QTest::addColumn<QByteArray>("kind");
        QTest::addColumn<bool>("expected");
        QTest::newRow("a usual one") << QByteArray("xterm-256color") << true;
        QTest::newRow("one that only prints") << QByteArray("dumb") << false;
        QTest::newRow("an unknown one") << QByteArray() << false;
    }

    void aScreenThatTakesLinesBackIsWatched()
    {
        QFETCH(const QByteArray, kind);
        QFETCH(const bool, expected);
        const auto ended = inChild(STDOUT_FILENO, [&kind] {
            const int screen = ::posix_openpt(O_RDWR | O_NOCTTY);
            ::grantpt(screen);
            ::unlockpt(screen);
            ::dup2(::open(::ptsname(screen), O_RDWR | O_NOCTTY), STDERR_FILENO);
            qputenv("TERM", kind);
            const StandardTerminal terminal;
            return terminal.isWatched() ? 1 : 0;
        });
        QCOMPARE(ended.status, expected ? 1 : 0);
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::StandardTerminalTest)
#include "StandardTerminalTest.moc"
