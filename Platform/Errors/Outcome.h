#pragma once

#include <exception>
#include <functional>
#include <utility>
#include <variant>

namespace quorvel {

/// The outcome of an asynchronous call: its value, or its facility's error. A call without a result
/// has the value `std::monostate`.
template <class Value>
class Outcome
{
public:
    [[nodiscard]] static Outcome success(Value value)
    {
        return Outcome(std::in_place_index<0>, std::move(value));
    }
    template <class Error>
    [[nodiscard]] static Outcome failure(Error error)
    {
        return failure(std::make_exception_ptr(std::move(error)));
    }
    /// For code that caught an error without knowing its type.
    [[nodiscard]] static Outcome failure(std::exception_ptr error)
    {
        return Outcome(std::in_place_index<1>, std::move(error));
    }

    [[nodiscard]] bool isSuccess() const { return m_result.index() == 0; }

    /// Moves the value out. Throws the error of a failure.
    [[nodiscard]] Value take()
    {
        if (const auto *error = std::get_if<1>(&m_result))
            std::rethrow_exception(*error);
        return std::move(std::get<0>(m_result));
    }

private:
    template <std::size_t index, class Content>
    Outcome(std::in_place_index_t<index> place, Content content)
        : m_result(place, std::move(content))
    {}

    std::variant<Value, std::exception_ptr> m_result;
};

/// Receives the outcome of a call: on the main thread, exactly once, never before the call
/// returned.
template <class Value>
using Completion = std::function<void(Outcome<Value>)>;

} // namespace quorvel
