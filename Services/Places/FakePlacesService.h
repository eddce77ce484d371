#pragma once

#include "Platform/Errors/FakeAnswers.h"
#include "Platform/Geodesy/Coordinate.h"
#include "Services/Places/PlacesService.h"

#include <vector>

namespace quorvel {

/// A places service that returns the cafés a test gives it.
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
        calls.call(pending.completion(), {.around = around, .radiusMeters = radiusMeters});
        const auto candidates = co_await pending;
        co_return candidates;
    }

    FakeAnswers<Candidates, Request> calls{"FakePlacesService::nearbyCafes"};
};

} // namespace quorvel
