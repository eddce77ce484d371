#pragma once

#include <QString>

namespace quorvel {

/// What the user pastes from in every program.
class Pasteboard
{
public:
    virtual ~Pasteboard() = default;

    virtual void clearContents() = 0;
    /// Replaces what is there with a text that is not to be kept: a clipboard history that knows
    /// passwords passes it over.
    virtual void setSecret(const QString &text) = 0;
};

} // namespace quorvel
