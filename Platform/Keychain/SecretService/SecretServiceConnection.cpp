#include "Platform/Keychain/SecretService/SecretServiceConnection.h"

#include "Platform/Bus/SessionBus.h"
#include "Platform/Keychain/SecretService/SecretServiceFailure.h"

#include <QProcessEnvironment>

namespace quorvel {

namespace {

constexpr auto serviceName = "org.freedesktop.secrets";
constexpr auto busName = "org.freedesktop.DBus";
constexpr auto busPath = "/org/freedesktop/DBus";
/// The deadline of the whole call is shorter.
constexpr int noTimeoutOfItsOwn = -1;

} // namespace

SecretService *SecretServiceConnection::service(GCancellable *cancellable)
{
    if (!m_bus)
        connectToBus(cancellable);
    if (!m_service || owner(cancellable) != m_owner)
        openSession(cancellable);
    return m_service.get();
}

void SecretServiceConnection::connectToBus(GCancellable *cancellable)
{
    // Without this check the bus library would launch a bus that nobody else uses.
    if (!SessionBus::isProvided(QProcessEnvironment::systemEnvironment()))
        throw SecretServiceFailure{KeychainStatus::notAvailable};
    SecretServiceErrorSlot error;
    m_bus.reset(g_bus_get_sync(G_BUS_TYPE_SESSION, cancellable, error));
    error.check();
    // Otherwise the end of the bus would end the program.
    g_dbus_connection_set_exit_on_close(m_bus.get(), FALSE);
}

void SecretServiceConnection::openSession(GCancellable *cancellable)
{
    m_service.reset();
    SecretServiceErrorSlot error;
    m_service.reset(secret_service_open_sync(SECRET_TYPE_SERVICE, nullptr,
                                             SECRET_SERVICE_OPEN_SESSION, cancellable, error));
    error.check();
    m_owner = owner(cancellable);
}

QByteArray SecretServiceConnection::owner(GCancellable *cancellable) const
{
    GVariant *reply = g_dbus_connection_call_sync(
        m_bus.get(), busName, busPath, busName, "GetNameOwner", g_variant_new("(s)", serviceName),
        G_VARIANT_TYPE("(s)"), G_DBUS_CALL_FLAGS_NONE, noTimeoutOfItsOwn, cancellable, nullptr);
    if (!reply)
        return {};
    const char *name = nullptr;
    g_variant_get(reply, "(&s)", &name);
    QByteArray owner(name);
    g_variant_unref(reply);
    return owner;
}

} // namespace quorvel
