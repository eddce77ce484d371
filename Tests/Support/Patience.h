#pragma once

#include <QTest>

namespace quorvel::tests {

/// How long a test waits for a fact. Only a hang takes longer, and an early fact costs no time.
constexpr int patienceMilliseconds = 60'000;

/// Runs the event loop until the fact is true. Returns false if it never is.
template <class Fact>
[[nodiscard]] bool comes(Fact fact)
{
    return QTest::qWaitFor(fact, patienceMilliseconds);
}

} // namespace quorvel::tests

// Qt's own macros wait five seconds, which is too short on a busy machine.
#undef QTRY_VERIFY
#undef QTRY_COMPARE
#define QTRY_VERIFY(fact) QTRY_VERIFY_WITH_TIMEOUT(fact, quorvel::tests::patienceMilliseconds)
#define QTRY_COMPARE(actual, expected)                                                             \
    QTRY_COMPARE_WITH_TIMEOUT(actual, expected, quorvel::tests::patienceMilliseconds)
