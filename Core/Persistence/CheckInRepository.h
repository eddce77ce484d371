#pragma once

#include "Models/CheckIn.h"
#include "Models/PlaceCandidate.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace quorvel {

/// The only way to the stored visits: the check-in screen finds cafés and saves with it, the
/// history lists with it. Synchronous, main thread only. Every operation may throw the store's
/// error, unwrapped.
class CheckInRepository
{
public:
    virtual ~CheckInRepository() = default;

    /// Runs the action while no other process runs one. What the action reads stays true until it
    /// has saved. Calls cannot be nested.
    virtual void inTurn(const std::function<void()> &action) = 0;

    /// All stored visits, newest first. Visits of the same instant keep the store's order.
    [[nodiscard]] virtual std::vector<std::shared_ptr<CheckIn>> allCheckIns() = 0;

    /// Returns the candidate's stored café, as first saved, or saves a new one at once. Only the
    /// map identifier finds a café: a candidate without one gets a new café every time.
    [[nodiscard]] virtual std::shared_ptr<Cafe> findOrCreateCafe(const PlaceCandidate &from) = 0;

    /// Whether the café with that identifier has a visit today, from midnight to midnight in the
    /// user's time zone.
    [[nodiscard]] virtual bool
    hasCheckedInToday(const std::optional<QString> &mapItemIdentifier) = 0;

    /// Stores the visit. If it throws, the visit stays pending, and the next save stores it too.
    virtual void save(const std::shared_ptr<CheckIn> &checkIn) = 0;
};

} // namespace quorvel
