#pragma once

#include <QObject>
#include <QString>

namespace quorvel {

/// What a user wants to see who starts the program or picks one of its desktop actions.
enum class Request { Panel, History, Diagnostics };

/// The desktop's tokens with which a window may come to the front, and the window to open.
struct Activation
{
    /// The Wayland token; may be empty, as the next one may.
    QString token = {};
    /// The X11 token; a window can come forward without it.
    QString startupId = {};
    Request request = Request::Panel;

    friend bool operator==(const Activation &, const Activation &) = default;
};

/// Makes the program the only one in the user's session. Where no icon shows, a user reaches the
/// program by starting it again, so a later start brings the first one forward.
class SingleInstance : public QObject
{
    Q_OBJECT

public:
    enum class Claim {
        /// This process is the one instance.
        Primary,
        /// Another process is the one instance. It has received this start's request.
        HandedOver,
        /// Another process is the one instance and does not answer.
        Unreachable,
        /// There is no way to know. Run without the guarantee.
        NoBus
    };

    using QObject::QObject;

    /// Claims the instance. Blocks for at most about five seconds.
    [[nodiscard]] virtual Claim claim() = 0;

signals:
    /// A later start or the desktop asks to see the program.
    void activated(const quorvel::Activation &activation);
};

} // namespace quorvel
