#pragma once

#include <QByteArrayView>

namespace quorvel {

/// Where a command of the program speaks to its user or to another program: results on one stream,
/// everything else on another. Texts are UTF-8.
class Terminal
{
public:
    virtual ~Terminal() = default;

    /// All of it to standard output, at once. Throws TerminalError.
    virtual void print(QByteArrayView result) = 0;

    /// To standard error. Silent where nobody reads it: there is no other place to say so.
    virtual void note(QByteArrayView words) = 0;

    /// Whether a person watches standard error on a screen that can take a line back.
    [[nodiscard]] virtual bool isWatched() const = 0;
};

} // namespace quorvel
