#pragma once

#include "Core/Persistence/CheckInPhotoStore.h"
#include "Features/History/VisitWifiQR.h"

namespace quorvel {

class CheckInRepository;
class Clock;

/// Everything that the history asks. All that is pointed to outlives it.
struct HistoryRoles
{
    /// Null when the store could not be opened.
    CheckInRepository *checkInRepository;
    CheckInPhotoStore photoStore;
    KeychainMaker makeKeychain;
    const Clock &clock;
};

} // namespace quorvel
