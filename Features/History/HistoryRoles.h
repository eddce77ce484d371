#pragma once

#include "Core/Persistence/CheckInPhotoStore.h"
#include "Features/History/Visit/VisitWifiQR.h"

namespace quorvel {

class CheckInRepository;
class Clock;
class FileManager;
class Pasteboard;
class VisitDetail;

/// Draws the card of an open visit as it is shown; null when it cannot.
using CardRenderer = std::function<QImage(VisitDetail &)>;

/// Everything that the history asks. All that is pointed to outlives it.
struct HistoryRoles
{
    /// Null when the store could not be opened.
    CheckInRepository *checkInRepository;
    CheckInPhotoStore photoStore;
    KeychainMaker makeKeychain;
    const Clock &clock;
    /// Where a shared visit goes.
    Pasteboard &pasteboard;
    const FileManager &fileManager;
    CardRenderer renderCard;
};

} // namespace quorvel
