#pragma once

#include <QObject>
#include <QString>

namespace quorvel {

/// What somebody wants to see who starts the program, or picks one of its actions on the desktop.
enum class Request { Panel, History, Diagnostics };

/// What the desktop hands to a start so that its window may come to the front, and which window.
struct Activation
{
    /// Of the Wayland kind; may be empty, as the next.
    QString token = {};
    /// Of the X11 kind, where a window needs none to come forward.
    QString startupId = {};
    Request request = Request::Panel;

    friend bool operator==(const Activation &, const Activation &) = default;
};

/// The program's claim to be the only one of the user's session. Starting it again is how a user
/// reaches it where no icon shows, so a later start brings the first one forward.
class SingleInstance : public QObject
{
    Q_OBJECT

public:
    enum class Claim {
        /// This process is the one.
        Primary,
        /// Another is the one; it was told what this start wants to see, and answered.
        HandedOver,
        /// Another is the one, and does not answer.
        Unreachable,
        /// There is no way to know; run without the guarantee.
        NoBus
    };

    using QObject::QObject;

    /// Stakes the claim. Blocks, but never for much longer than five seconds.
    [[nodiscard]] virtual Claim claim() = 0;

signals:
    /// Somebody wants to see the program, by a later start or through the desktop.
    void activated(const quorvel::Activation &activation);
};

} // namespace quorvel
