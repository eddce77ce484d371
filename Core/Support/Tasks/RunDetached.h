#pragma once

#include "Core/Support/Tasks/Task.h"

#include <QThreadPool>

#include <exception>
#include <memory>
#include <type_traits>
#include <utility>
#include <variant>

namespace quorvel {

/// The result of a function: its value, or its exception of any type. The function and everything
/// that it holds are destroyed by then.
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

/// Runs a function on another thread, for work that would block the main thread. The function owns
/// its values and shares none. Its value or its exception comes back to the main thread.
template <class Function>
[[nodiscard]] Task<std::invoke_result_t<Function>> runDetached(Function function)
{
    using Result = std::invoke_result_t<Function>;
    using Value = std::conditional_t<std::is_void_v<Result>, std::monostate, Result>;
    Pending<Value> pending;
    // The pool needs a copyable closure; the function need not be copyable.
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
