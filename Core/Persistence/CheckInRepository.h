#pragma once

#include "Models/CheckIn.h"
#include "Models/PlaceCandidate.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace quorvel {

/// The one door to the stored visits: the check-in screen finds cafés and saves through it, the
/// history lists through it. Synchronous, main thread only. Every operation may throw the store's
/// error, unwrapped.
class CheckInRepository
{
public:
    virtual ~CheckInRepository() = default;

    /// Runs the action while no other process runs one: what it finds out here stays true until it
    /// has saved. Not within another.
    virtual void inTurn(const std::function<void()> &action) = 0;

    /// Every stored visit, newest first; visits of the same instant in the store's order.
    [[nodiscard]] virtual std::vector<std::shared_ptr<CheckIn>> allCheckIns() = 0;

    /// The stored café of the candidate, as it was first saved, or a new one that is saved at once.
    /// Found by the map identifier only: a candidate without one gets a new café every time.
    [[nodiscard]] virtual std::shared_ptr<Cafe> findOrCreateCafe(const PlaceCandidate &from) = 0;

    /// Whether the café with that identifier has a visit between the user's last midnight and the
    /// next.
    [[nodiscard]] virtual bool
    hasCheckedInToday(const std::optional<QString> &mapItemIdentifier) = 0;

    /// Stores the visit. When it throws, the visit stays pending and the next save takes it along.
    virtual void save(const std::shared_ptr<CheckIn> &checkIn) = 0;
};

} // namespace quorvel
