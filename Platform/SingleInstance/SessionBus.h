#pragma once

class QProcessEnvironment;

namespace quorvel::SessionBus {

/// Whether the user's session has a bus that is there already. Connecting without one would start a
/// bus that nobody else is on, and that outlives the program.
[[nodiscard]] bool isProvided(const QProcessEnvironment &environment);

} // namespace quorvel::SessionBus
