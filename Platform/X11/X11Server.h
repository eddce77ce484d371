#pragma once

#include <QByteArray>
#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

/// Questions to the X server, for the live backends that need to know what Qt does not tell.
namespace quorvel::X11Server {

template <typename Reply>
using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

/// What the server sent belongs to whoever asked.
template <typename Reply>
[[nodiscard]] Owned<Reply> owned(Reply *reply)
{
    return {reply, &std::free};
}

/// The connection whose events Qt hands to event filters; null on another window system.
[[nodiscard]] xcb_connection_t *connection();

/// The number that stands for the name; none when the server is gone.
[[nodiscard]] xcb_atom_t atom(xcb_connection_t *connection, const QByteArray &name);

/// The window that answers for the selection; none when nobody does.
[[nodiscard]] xcb_window_t selectionOwner(xcb_connection_t *connection, xcb_atom_t selection);

/// Whether this program made the window.
[[nodiscard]] bool isOurs(xcb_connection_t *connection, xcb_window_t window);

} // namespace quorvel::X11Server
