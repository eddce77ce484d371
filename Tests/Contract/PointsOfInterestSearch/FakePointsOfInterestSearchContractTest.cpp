#include "Platform/PointsOfInterest/FakePointsOfInterestSearch.h"
#include "Tests/Contract/PointsOfInterestSearch/PointsOfInterestSearchContract.h"

#include <QTest>

#include <memory>

namespace quorvel::tests {

class FakePointsOfInterestSearchContractTest final : public PointsOfInterestSearchContract
{
    Q_OBJECT

    std::unique_ptr<PointsOfInterestSearch> make() override
    {
        auto map = std::make_unique<FakePointsOfInterestSearch>();
        m_calls = &map->calls;
        return map;
    }

    void willFind(const Places &places) override { m_calls->willSucceed(places); }
    void willFail(PointsOfInterestError::Case kind) override
    {
        m_calls->willFail(PointsOfInterestError(kind, QStringLiteral("400")));
    }
    void willHold() override { m_calls->willHold(); }
    bool isHeld() const override { return !m_calls->requests.empty(); }

    decltype(FakePointsOfInterestSearch::calls) *m_calls = nullptr;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::FakePointsOfInterestSearchContractTest)
#include "FakePointsOfInterestSearchContractTest.moc"
