#pragma once

#include <QDBusConnection>

class QProcessEnvironment;

namespace quorvel {

/// The user's session bus, for the live backends of its services. It never starts a bus. By default
/// the bus library launches a bus of its own, which nobody else uses and which outlives the
/// program.
namespace SessionBus {

/// Whether the session already has a bus.
[[nodiscard]] bool isProvided(const QProcessEnvironment &environment);

/// This process's connection; not connected if the session has no bus.
[[nodiscard]] QDBusConnection connection();

} // namespace SessionBus
} // namespace quorvel
