#pragma once

#include "Platform/Errors/FakeCalls.h"
#include "Platform/PointsOfInterest/PointsOfInterestError.h"
#include "Platform/PointsOfInterest/PointsOfInterestSearch.h"

namespace quorvel {

/// A map whose answers a test writes down.
class FakePointsOfInterestSearch final : public PointsOfInterestSearch
{
public:
    using Places = std::vector<PointOfInterest>;

    void search(const PointsOfInterestRequest &request, Completion<Places> completion) override
    {
        calls.begin(request, std::move(completion));
    }

    FakeCalls<PointsOfInterestRequest, Places> calls{
        "FakePointsOfInterestSearch::search",
        Outcome<Places>::failure(PointsOfInterestError(PointsOfInterestError::Case::Cancelled))};
};

} // namespace quorvel
