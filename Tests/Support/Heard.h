#pragma once

#include "Platform/Errors/LocalizedError.h"
#include "Platform/Errors/Outcome.h"
#include "Tests/Support/Patience.h"

#include <QTest>

#include <memory>
#include <optional>

namespace quorvel::tests {

/// What a call's completion was told, and how often.
template <class Value>
struct Heard
{
    int count = 0;
    std::optional<Value> value;
    QString error;

    /// To be handed to the call.
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

/// Begins a call with the completion that it is given, and waits for the call's end; what is
/// returned goes on to count.
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
