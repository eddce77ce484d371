#pragma once

#include "Features/MenuBar/Loop/MenuBarViewModel.h"
#include "Models/PlaceCandidate.h"

namespace quorvel {

class Terminal;

/// Runs the daily loop once and returns its result. On a terminal it shows progress, and removes it
/// at the end.
[[nodiscard]] ViewState<LocatedSnapshot> locateOnce(MenuBarViewModel &viewModel,
                                                    Terminal &terminal);

/// Makes the loop choose another café, and returns its result.
[[nodiscard]] ViewState<LocatedSnapshot> selectOnce(MenuBarViewModel &viewModel,
                                                    const PlaceCandidate &candidate);

} // namespace quorvel
