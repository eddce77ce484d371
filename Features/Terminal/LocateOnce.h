#pragma once

#include "Features/MenuBar/Loop/MenuBarViewModel.h"
#include "Models/PlaceCandidate.h"

namespace quorvel {

class Terminal;

/// Runs the daily loop once, to its end, and returns what it published. Whoever watches the
/// terminal sees that it goes on; nothing of that stays on the screen.
[[nodiscard]] ViewState<LocatedSnapshot> locateOnce(MenuBarViewModel &viewModel,
                                                    Terminal &terminal);

/// Has the loop choose a café other than the one it has, and returns what it published.
[[nodiscard]] ViewState<LocatedSnapshot> selectOnce(MenuBarViewModel &viewModel,
                                                    const PlaceCandidate &candidate);

} // namespace quorvel
