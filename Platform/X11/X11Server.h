#pragma once

#include <QByteArray>
#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

/// Questions to the X server, for live backends that need more than Qt tells.
namespace quorvel::X11Server {

template <typename Reply>
using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

/// Frees a reply of the server.
template <typename Reply>
[[nodiscard]] Owned<Reply> owned(Reply *reply)
{
    return {reply, &std::free};
}

/// The connection whose events Qt passes to event filters; null on another window system.
[[nodiscard]] xcb_connection_t *connection();

/// The number of the atom with this name; none if the server is gone.
[[nodiscard]] xcb_atom_t atom(xcb_connection_t *connection, const QByteArray &name);

/// The window that owns the selection; none if nobody does.
[[nodiscard]] xcb_window_t selectionOwner(xcb_connection_t *connection, xcb_atom_t selection);

/// Whether this program created the window.
[[nodiscard]] bool isOurs(xcb_connection_t *connection, xcb_window_t window);

} // namespace quorvel::X11Server
