#include "Core/Support/ViewState.h"

#include <QTest>

#include <vector>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

using State = ViewState<int>;

std::vector<State> allCases()
{
    return {State::idle(),
            State::loading(),
            State::loaded(1),
            State::loaded(2),
            State::error(AppError::locationDenied()),
            State::error(AppError::network(u"1"_s)),
            State::error(AppError::network(u"2"_s))};
}

} // namespace

class ViewStateTest final : public QObject
{
    Q_OBJECT

private slots:
    void aStateIsEqualToItselfAlone()
    {
        const auto states = allCases();
        const auto again = allCases();
        for (std::size_t left = 0; left < states.size(); ++left)
            for (std::size_t right = 0; right < again.size(); ++right)
                QCOMPARE(states[left] == again[right], left == right);
    }

    void eachQueryKnowsItsCase()
    {
        for (const State &state : allCases()) {
            const int cases =
                state.isIdle() + state.isLoading() + state.isLoaded() + state.isError();
            QCOMPARE(cases, 1);
            QCOMPARE(state.loadedValue() != nullptr, state.isLoaded());
            QCOMPARE(state.errorValue() != nullptr, state.isError());
        }
        QVERIFY(State::idle().isIdle());
        QVERIFY(State::loading().isLoading());
    }

    void aCaseKeepsItsPayload()
    {
        QCOMPARE(*State::loaded(7).loadedValue(), 7);
        QVERIFY(*State::error(AppError::noCafeFound()).errorValue() == AppError::noCafeFound());
    }

    void copiesShareTheirResult()
    {
        auto state = State::loaded(7);
        const auto copy = state;
        QCOMPARE(copy.loadedValue(), state.loadedValue());
        state = State::idle();
        QCOMPARE(*copy.loadedValue(), 7);
    }

    void aResultMayBeAnErrorItself()
    {
        using Found = ViewState<AppError>;
        QVERIFY(Found::loaded(AppError::noCafeFound()).isLoaded());
        QVERIFY(Found::error(AppError::noCafeFound()).isError());
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::ViewStateTest)
#include "ViewStateTest.moc"
