#include "Platform/Bus/SystemBus.h"

namespace quorvel::SystemBus {

QDBusConnection connection()
{
    return QDBusConnection::systemBus();
}

} // namespace quorvel::SystemBus
