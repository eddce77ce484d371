#pragma once

#include "Platform/Errors/LocalizedError.h"
#include "Platform/Errors/Outcome.h"
#include "Tests/Support/Patience.h"

#include <QTest>

#include <memory>
#include <optional>

namespace quorvel::tests {

/// The results that a call's completion received, and how many.
template <class Value>
struct Heard
{
    int count = 0;
    std::optional<Value> value;
    QString error;

    /// Pass it to the call.
    [[nodiscard]] static Completion<Value> by(const std::shared_ptr<Heard> &heard)
    {
        return [heard](Outcome<Value> outcome) {
            ++heard->count;
            try {
                heard->value = outcome.take();
            } catch (const LocalizedError &failure) {
                heard->error = failure.errorDescription();
            }
        };
    }
};

/// Starts a call with a completion and waits for its end. The returned object goes on counting.
template <class Value, class Begin>
[[nodiscard]] std::shared_ptr<Heard<Value>> hear(Begin begin)
{
    auto heard = std::make_shared<Heard<Value>>();
    begin(Heard<Value>::by(heard));
    if (heard->count != 0)
        qFatal("the call ended before it returned");
    if (!comes([&heard] { return heard->count > 0; }))
        qFatal("the call did not end");
    return heard;
}

} // namespace quorvel::tests
