#include "Platform/StatusItem/XEmbedManagerWatcher.h"

#include "Platform/X11/X11Server.h"

#include <QGuiApplication>
#include <QMetaObject>

#include <cstdlib>

namespace quorvel {

namespace {

int screenNumber()
{
    char *host = nullptr;
    int display = 0;
    int screen = 0;
    if (xcb_parse_display(nullptr, &host, &display, &screen) != 0)
        std::free(host);
    return screen;
}

/// Subscribes to the end of the window. Returns false if it has ended already.
bool followEnd(xcb_connection_t *connection, xcb_window_t window)
{
    // The same mask that Qt sets on this window over the same connection: the last one counts.
    const std::uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    const auto cookie =
        xcb_change_window_attributes_checked(connection, window, XCB_CW_EVENT_MASK, &mask);
    return X11Server::owned(xcb_request_check(connection, cookie)) == nullptr;
}

} // namespace

XEmbedManagerWatcher::XEmbedManagerWatcher(QObject *parent)
    : QObject(parent)
{
    m_connection = X11Server::connection();
    if (!m_connection)
        return;
    m_announcement = X11Server::atom(m_connection, QByteArrayLiteral("MANAGER"));
    m_selection =
        X11Server::atom(m_connection, "_NET_SYSTEM_TRAY_S" + QByteArray::number(screenNumber()));
    // Order: subscribe first, so that no manager is missed between the check and the subscription.
    // Qt already receives the root window's messages.
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
    // Later, so that nobody creates windows while Qt handles this event.
    if (concernsUs)
        QMetaObject::invokeMethod(this, &XEmbedManagerWatcher::lookUp, Qt::QueuedConnection);
    return false;
}

void XEmbedManagerWatcher::lookUp()
{
    const bool wasPresent = isPresent();
    m_manager = X11Server::selectionOwner(m_connection, m_selection);
    if (m_manager != XCB_WINDOW_NONE && !followEnd(m_connection, m_manager))
        m_manager = XCB_WINDOW_NONE;
    if (wasPresent != isPresent())
        emit isPresentChanged();
}

} // namespace quorvel
