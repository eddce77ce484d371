#pragma once

#include "Platform/Errors/Outcome.h"

#include <QImage>
#include <QString>

namespace quorvel {

/// Whether the content holds a password. Clipboard histories that know the mark skip it.
enum class Secrecy { Open, Secret };

/// The result of an offer. Some desktops forbid writing to the clipboard without the user's action.
enum class Acceptance { Accepted, Refused };

/// The clipboard that every program pastes from.
class Pasteboard
{
public:
    virtual ~Pasteboard() = default;

    virtual void clearContents() = 0;
    /// Replaces the content with a text that other programs may keep.
    virtual void setText(const QString &text) = 0;
    /// Replaces the content with a text that other programs should not keep.
    virtual void setSecret(const QString &text) = 0;
    /// Replaces the content with a picture. Reports whether other programs can paste it.
    virtual void setImage(const QImage &image, Secrecy secrecy,
                          Completion<Acceptance> completion) = 0;
};

} // namespace quorvel
