#pragma once

#include "Core/Support/Tasks/Task.h"
#include "Tests/Support/Patience.h"

#include <QCoreApplication>
#include <QTest>

#include <exception>
#include <memory>
#include <optional>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <variant>

namespace quorvel::tests {

namespace detail {

template <class Value>
using Kept = std::conditional_t<std::is_void_v<Value>, std::monostate, Value>;

/// Shared, since a task that never ends outlives the test that ran it.
template <class Value>
Task<> keepOutcome(Task<Value> task, std::shared_ptr<std::optional<Outcome<Kept<Value>>>> place)
{
    using Result = Outcome<Kept<Value>>;
    try {
        if constexpr (std::is_void_v<Value>) {
            co_await task;
            place->emplace(Result::success({}));
        } else {
            auto value = co_await task;
            place->emplace(Result::success(std::move(value)));
        }
    } catch (...) {
        place->emplace(Result::failure(std::current_exception()));
    }
}

} // namespace detail

/// Runs the event loop until the task has ended, and returns its outcome. A task that never ends
/// fails the test.
template <class Value>
Outcome<detail::Kept<Value>> outcomeOfTask(Task<Value> task)
{
    auto place = std::make_shared<std::optional<Outcome<detail::Kept<Value>>>>();
    detail::keepOutcome(std::move(task), place);
    if (!comes([&place] { return place->has_value(); }))
        throw std::runtime_error("the task did not end");
    return std::move(**place);
}

/// The task's value. Throws the task's exception.
template <class Value>
detail::Kept<Value> runTask(Task<Value> task)
{
    return outcomeOfTask(std::move(task)).take();
}

/// The task's error; nothing if it returned a value. Rethrows an error of another type.
template <class Error, class Value>
std::optional<Error> errorOfTask(Task<Value> task)
{
    try {
        static_cast<void>(runTask(std::move(task)));
    } catch (const Error &error) {
        return error;
    }
    return std::nullopt;
}

/// Runs everything that is due already.
inline void turnEventLoop()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

} // namespace quorvel::tests
