#pragma once

#include <QByteArrayView>

namespace quorvel {

/// The streams of a command: results go to one, everything else to the other. Texts are UTF-8.
class Terminal
{
public:
    virtual ~Terminal() = default;

    /// Writes all of it to standard output at once. Throws TerminalError.
    virtual void print(QByteArrayView result) = 0;

    /// Writes to standard error. Silent on failure: there is no other place to report it.
    virtual void note(QByteArrayView words) = 0;

    /// Whether standard error is a screen on which a line can be taken back.
    [[nodiscard]] virtual bool isWatched() const = 0;
};

} // namespace quorvel
