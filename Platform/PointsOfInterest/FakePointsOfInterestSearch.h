#pragma once

#include "Platform/Errors/FakeAnswers.h"
#include "Platform/PointsOfInterest/PointsOfInterestError.h"
#include "Platform/PointsOfInterest/PointsOfInterestSearch.h"

#include <utility>
#include <vector>

namespace quorvel {

/// A map whose answers a test writes down.
class FakePointsOfInterestSearch final : public PointsOfInterestSearch
{
public:
    using Places = std::vector<PointOfInterest>;

    void search(const PointsOfInterestRequest &request, Completion<Places> completion) override
    {
        calls.call(std::move(completion), request);
    }

    FakeAnswers<Places, PointsOfInterestRequest> calls{
        "FakePointsOfInterestSearch::search",
        Outcome<Places>::failure(PointsOfInterestError(PointsOfInterestError::Case::Cancelled))};
};

} // namespace quorvel
