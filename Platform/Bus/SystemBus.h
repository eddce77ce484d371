#pragma once

#include <QDBusConnection>

/// The machine's system bus, for whoever translates one of its services.
namespace quorvel::SystemBus {

/// The bus at DBUS_SYSTEM_BUS_ADDRESS, else at its usual place, or a closed connection where there
/// is none.
[[nodiscard]] QDBusConnection connection();

} // namespace quorvel::SystemBus
