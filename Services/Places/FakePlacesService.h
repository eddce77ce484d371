#pragma once

#include "Platform/Errors/FakeCalls.h"
#include "Services/Places/PlacesService.h"

namespace quorvel {

/// Cafés as a test wishes.
class FakePlacesService final : public PlacesService
{
public:
    struct Request
    {
        Coordinate around;
        double radiusMeters = 0;

        friend bool operator==(const Request &, const Request &) = default;
    };
    using Candidates = std::vector<PlaceCandidate>;

    [[nodiscard]] Task<Candidates> nearbyCafes(Coordinate around, double radiusMeters) override
    {
        Pending<Candidates> pending;
        calls.begin({.around = around, .radiusMeters = radiusMeters}, pending.completion());
        const auto candidates = co_await pending;
        co_return candidates;
    }

    FakeCalls<Request, Candidates> calls{"FakePlacesService::nearbyCafes",
                                         Outcome<Candidates>::failure(Abandoned())};
};

} // namespace quorvel
