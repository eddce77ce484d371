#pragma once

#include <QDBusConnection>

/// The machine's system bus, for the live backends of its services.
namespace quorvel::SystemBus {

/// The bus at DBUS_SYSTEM_BUS_ADDRESS, else at its usual address. A closed connection if there is
/// none.
[[nodiscard]] QDBusConnection connection();

} // namespace quorvel::SystemBus
