#include "Platform/SystemBus/SystemBus.h"

namespace quorvel::SystemBus {

QDBusConnection connection()
{
    return QDBusConnection::systemBus();
}

} // namespace quorvel::SystemBus
