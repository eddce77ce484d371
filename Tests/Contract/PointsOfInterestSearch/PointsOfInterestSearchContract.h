#pragma once

#include "Platform/PointsOfInterest/PointsOfInterestError.h"
#include "Platform/PointsOfInterest/PointsOfInterestSearch.h"

#include <QObject>

#include <memory>
#include <vector>

namespace quorvel::tests {

/// The promises of every map.
class PointsOfInterestSearchContract : public QObject
{
    Q_OBJECT

protected:
    using Places = std::vector<PointOfInterest>;

    [[nodiscard]] virtual std::unique_ptr<PointsOfInterestSearch> make() = 0;

    /// Scripts the outcome of the next search.
    virtual void willFind(const Places &places) = 0;
    virtual void willFail(PointsOfInterestError::Case kind) = 0;
    virtual void willHold() = 0;
    /// Returns when the search is held.
    [[nodiscard]] virtual bool isHeld() const = 0;

private slots:
    void init() { m_map = make(); }
    void cleanup() { m_map.reset(); }

    void everyPlaceIsFoundWithAllThatIsKnownOfIt();
    void anEmptyDistrictIsNoFailure();
    void everyFailureHasItsSentence_data();
    void everyFailureHasItsSentence();
    void aMapIsSearchedAgainAndAgain();
    void openSearchesEndAsCancelledWithTheMap();
    void whoWaitsMayDestroyTheMap();

private:
    std::unique_ptr<PointsOfInterestSearch> m_map;
};

} // namespace quorvel::tests
