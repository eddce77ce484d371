#pragma once

#include <QTest>

namespace quorvel::tests {

/// For a fact that a test waits for. Only a hang lasts so long: a fact that comes early costs
/// nothing of it.
constexpr int patienceMilliseconds = 60'000;

/// Lets the event loop turn until the fact is there. False when it never comes.
template <class Fact>
[[nodiscard]] bool comes(Fact fact)
{
    return QTest::qWaitFor(fact, patienceMilliseconds);
}

} // namespace quorvel::tests

// Qt's own wait five seconds, which a busy machine can take.
#undef QTRY_VERIFY
#undef QTRY_COMPARE
#define QTRY_VERIFY(fact) QTRY_VERIFY_WITH_TIMEOUT(fact, quorvel::tests::patienceMilliseconds)
#define QTRY_COMPARE(actual, expected)                                                             \
    QTRY_COMPARE_WITH_TIMEOUT(actual, expected, quorvel::tests::patienceMilliseconds)
