#include "Platform/StatusItem/XEmbedManagerWatcher.h"

#include <QGuiApplication>
#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

namespace quorvel {

namespace {

template <typename Reply>
using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

template <typename Reply>
Owned<Reply> owned(Reply *reply)
{
    return {reply, &std::free};
}

/// The connection whose events Qt hands to event filters; null on another window system.
xcb_connection_t *xcbConnection()
{
    // Platforms that only draw may own a connection too, but never look at its events.
    if (QGuiApplication::platformName() != QStringLiteral("xcb"))
        return nullptr;
    const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

int screenNumber()
{
    char *host = nullptr;
    int display = 0;
    int screen = 0;
    if (xcb_parse_display(nullptr, &host, &display, &screen) != 0)
        std::free(host);
    return screen;
}

xcb_atom_t internAtom(xcb_connection_t *connection, const QByteArray &name)
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

/// Asks for the news of the window's end. False when it has ended already.
bool followEnd(xcb_connection_t *connection, xcb_window_t window)
{
    // The very mask that Qt sets on this window over the same connection: the last one counts.
    const std::uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    const auto cookie =
        xcb_change_window_attributes_checked(connection, window, XCB_CW_EVENT_MASK, &mask);
    return owned(xcb_request_check(connection, cookie)) == nullptr;
}

} // namespace

XEmbedManagerWatcher::XEmbedManagerWatcher(QObject *parent)
    : QObject(parent)
{
    m_connection = xcbConnection();
    if (!m_connection)
        return;
    m_announcement = internAtom(m_connection, QByteArrayLiteral("MANAGER"));
    m_selection =
        internAtom(m_connection, "_NET_SYSTEM_TRAY_S" + QByteArray::number(screenNumber()));
    // Order: listen first, so that no manager falls between the look and the listening. Qt has
    // asked the root window for its messages already.
    qGuiApp->installNativeEventFilter(this);
    lookUp();
}

XEmbedManagerWatcher::~XEmbedManagerWatcher() = default;

bool XEmbedManagerWatcher::nativeEventFilter(const QByteArray &eventType, void *message, qintptr *)
{
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto *event = static_cast<const xcb_generic_event_t *>(message);
    const int type = event->response_type & 0x7f; // The other bit: sent by a client.
    bool concernsUs = false;
    if (type == XCB_CLIENT_MESSAGE) {
        const auto *sent = static_cast<const xcb_client_message_event_t *>(message);
        concernsUs = sent->type == m_announcement && sent->data.data32[1] == m_selection;
    } else if (type == XCB_DESTROY_NOTIFY) {
        const auto *ended = static_cast<const xcb_destroy_notify_event_t *>(message);
        concernsUs = isPresent() && ended->window == m_manager;
    }
    // Later, so that nobody makes windows in the midst of Qt's own handling of this event.
    if (concernsUs)
        QMetaObject::invokeMethod(this, &XEmbedManagerWatcher::lookUp, Qt::QueuedConnection);
    return false;
}

void XEmbedManagerWatcher::lookUp()
{
    const bool wasPresent = isPresent();
    m_manager = selectionOwner(m_connection, m_selection);
    if (m_manager != XCB_WINDOW_NONE && !followEnd(m_connection, m_manager))
        m_manager = XCB_WINDOW_NONE;
    if (wasPresent != isPresent())
        emit isPresentChanged();
}

} // namespace quorvel
