#include "Platform/X11/X11Server.h"

#include <QGuiApplication>

#include <cstdint>

namespace quorvel::X11Server {

xcb_connection_t *connection()
{
    // Platforms that only draw may have a connection too, but never read its events.
    if (QGuiApplication::platformName() != QStringLiteral("xcb"))
        return nullptr;
    const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

xcb_atom_t atom(xcb_connection_t *connection, const QByteArray &name)
{
    const auto cookie =
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.constData());
    const auto reply = owned(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

xcb_window_t selectionOwner(xcb_connection_t *connection, xcb_atom_t selection)
{
    const auto cookie = xcb_get_selection_owner(connection, selection);
    const auto reply = owned(xcb_get_selection_owner_reply(connection, cookie, nullptr));
    return reply ? reply->owner : xcb_window_t(XCB_WINDOW_NONE);
}

bool isOurs(xcb_connection_t *connection, xcb_window_t window)
{
    // The server gives every program a range of numbers for its resources.
    const xcb_setup_t *const setup = xcb_get_setup(connection);
    return (window & ~setup->resource_id_mask) == setup->resource_id_base;
}

} // namespace quorvel::X11Server
