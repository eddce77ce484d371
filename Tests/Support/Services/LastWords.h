#pragma once

#include <QByteArray>
#include <QMessageLogContext>
#include <QScopeGuard>
#include <QString>
#include <QtGlobal>
#include <sys/wait.h>

#include <csignal>
#include <functional>
#include <optional>
#include <unistd.h>

namespace quorvel::tests {

namespace detail {

inline int wordsDescriptor = -1;

inline void passOn(QtMsgType, const QMessageLogContext &, const QString &message)
{
    const QByteArray text = message.toUtf8();
    [[maybe_unused]] const auto written =
        write(wordsDescriptor, text.constData(), size_t(text.size()));
}

} // namespace detail

/// Runs the act in a separate process and returns what it logged when it aborted. Nothing if the
/// act ended normally or died in another way.
inline std::optional<QByteArray> lastWords(const std::function<void()> &act)
{
    int ends[2] = {-1, -1};
    if (pipe(ends) != 0)
        return std::nullopt;
    const pid_t child = fork();
    if (child == 0) {
        std::signal(SIGABRT, SIG_DFL);
        detail::wordsDescriptor = ends[1];
        qInstallMessageHandler(detail::passOn);
        act();
        _exit(0);
    }
    close(ends[1]);
    const auto closing = qScopeGuard([&ends] { close(ends[0]); });

    QByteArray words;
    char buffer[256];
    for (ssize_t count = 0; (count = read(ends[0], buffer, sizeof buffer)) > 0;)
        words.append(buffer, count);
    int status = 0;
    const bool aborted = child > 0 && waitpid(child, &status, 0) == child && WIFSIGNALED(status) &&
                         WTERMSIG(status) == SIGABRT;
    return aborted ? std::optional(words) : std::nullopt;
}

} // namespace quorvel::tests
