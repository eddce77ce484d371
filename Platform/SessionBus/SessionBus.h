#pragma once

#include <QDBusConnection>

class QProcessEnvironment;

/// The user's session bus, for whoever translates one of its services.
namespace quorvel::SessionBus {

/// Whether the session has a bus that is there already.
[[nodiscard]] bool isProvided(const QProcessEnvironment &environment);

/// The bus of this process, or a closed connection where the session has none. Never starts one:
/// left alone, the bus library launches a bus of its own that nobody else uses and that outlives
/// the program.
[[nodiscard]] QDBusConnection connection();

} // namespace quorvel::SessionBus
