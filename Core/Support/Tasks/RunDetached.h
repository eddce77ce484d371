#pragma once

#include "Core/Support/Tasks/Task.h"

#include <QThreadPool>

namespace quorvel {

/// What a function ended in: its value, or what it threw, whatever its type. The function and all
/// that it holds are gone by then.
template <class Value, class Function>
[[nodiscard]] Outcome<Value> outcomeOf(std::unique_ptr<Function> function)
{
    try {
        if constexpr (std::is_void_v<std::invoke_result_t<Function>>) {
            (*function)();
            return Outcome<Value>::success({});
        } else {
            return Outcome<Value>::success((*function)());
        }
    } catch (...) {
        return Outcome<Value>::failure(std::current_exception());
    }
}

/// Runs a function on another thread, for work that would keep the main thread waiting. It owns the
/// values that it works on and shares none; its value, or what it threw, comes back to the main
/// thread.
template <class Function>
[[nodiscard]] Task<std::invoke_result_t<Function>> runDetached(Function function)
{
    using Result = std::invoke_result_t<Function>;
    using Value = std::conditional_t<std::is_void_v<Result>, std::monostate, Result>;
    Pending<Value> pending;
    // What the pool runs has to be copyable, which the function need not be.
    auto shared = std::make_shared<std::unique_ptr<Function>>(
        std::make_unique<Function>(std::move(function)));
    QThreadPool::globalInstance()->start([shared, completion = pending.completion()] {
        auto outcome = outcomeOf<Value>(std::move(*shared));
        completion(std::move(outcome));
    });
    if constexpr (std::is_void_v<Result>) {
        co_await pending;
    } else {
        auto value = co_await pending;
        co_return value;
    }
}

} // namespace quorvel
