#pragma once

#include <QDBusConnection>

class QProcessEnvironment;

namespace quorvel {

/// The user's session bus, for whoever translates one of its services. Never starts one: left
/// alone, the bus library launches a bus of its own that nobody else is on and that outlives the
/// program.
namespace SessionBus {

/// Whether the session has a bus that is there already.
[[nodiscard]] bool isProvided(const QProcessEnvironment &environment);

/// The bus of this process; not connected where the session has none.
[[nodiscard]] QDBusConnection connection();

} // namespace SessionBus
} // namespace quorvel
