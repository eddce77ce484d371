#pragma once

#include "Platform/Errors/Outcome.h"

#include <QImage>
#include <QString>

namespace quorvel {

/// Whether what is offered holds a password: a clipboard history that knows them passes it over.
enum class Secrecy { Open, Secret };

/// What became of an offer: some desktops let nobody write behind the user's back.
enum class Acceptance { Accepted, Refused };

/// What the user pastes from in every program.
class Pasteboard
{
public:
    virtual ~Pasteboard() = default;

    virtual void clearContents() = 0;
    /// Replaces what is there with a text that anybody may keep.
    virtual void setText(const QString &text) = 0;
    /// Replaces what is there with a text that is not to be kept.
    virtual void setSecret(const QString &text) = 0;
    /// Replaces what is there with a picture, and tells whether other programs can paste it.
    virtual void setImage(const QImage &image, Secrecy secrecy,
                          Completion<Acceptance> completion) = 0;
};

} // namespace quorvel
