#pragma once

#include "Core/Support/AppError.h"

#include <memory>
#include <utility>
#include <variant>

namespace quorvel {

/// The load state of a screen. View models publish it, views choose by it. States are comparable if
/// their results are. Copies of a state share its result, which never changes.
template <class T>
class ViewState final
{
public:
    /// Nothing was requested yet.
    [[nodiscard]] static ViewState idle() { return ViewState(std::in_place_index<idleIndex>); }
    /// In progress, with nothing to show yet.
    [[nodiscard]] static ViewState loading()
    {
        return ViewState(std::in_place_index<loadingIndex>);
    }
    [[nodiscard]] static ViewState loaded(T value)
    {
        return ViewState(std::in_place_index<loadedIndex>,
                         Result{std::make_shared<const T>(std::move(value))});
    }
    [[nodiscard]] static ViewState error(AppError error)
    {
        return ViewState(std::in_place_index<errorIndex>, std::move(error));
    }

    [[nodiscard]] bool isIdle() const { return m_case.index() == idleIndex; }
    [[nodiscard]] bool isLoading() const { return m_case.index() == loadingIndex; }
    [[nodiscard]] bool isLoaded() const { return m_case.index() == loadedIndex; }
    [[nodiscard]] bool isError() const { return m_case.index() == errorIndex; }

    /// Null unless loaded. Lives as long as the state and its copies.
    [[nodiscard]] const T *loadedValue() const
    {
        const auto *result = std::get_if<loadedIndex>(&m_case);
        return result ? result->value.get() : nullptr;
    }
    /// Null unless in error. Lives as long as the state.
    [[nodiscard]] const AppError *errorValue() const { return std::get_if<errorIndex>(&m_case); }

    friend bool operator==(const ViewState &left, const ViewState &right)
    {
        return left.m_case == right.m_case;
    }

private:
    struct Result
    {
        std::shared_ptr<const T> value;

        friend bool operator==(const Result &left, const Result &right)
        {
            return *left.value == *right.value;
        }
    };

    static constexpr std::size_t idleIndex = 0;
    static constexpr std::size_t loadingIndex = 1;
    static constexpr std::size_t loadedIndex = 2;
    static constexpr std::size_t errorIndex = 3;

    template <std::size_t index, class... Content>
    explicit ViewState(std::in_place_index_t<index> place, Content... content)
        : m_case(place, std::move(content)...)
    {}

    std::variant<std::monostate, std::monostate, Result, AppError> m_case;
};

} // namespace quorvel
