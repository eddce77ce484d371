#pragma once

#include "Models/PlaceCandidate.h"

#include <utility>

namespace quorvel {

/// The panel's requests to the daily loop.
class MenuBarInput final
{
public:
    enum class Case { SelectCafe, Start, Retry, Cancel };

    /// The user chose this café.
    [[nodiscard]] static MenuBarInput selectCafe(PlaceCandidate candidate)
    {
        return {Case::SelectCafe, std::move(candidate)};
    }
    /// The panel opened. A cached result is good enough.
    [[nodiscard]] static MenuBarInput start() { return {Case::Start, {}}; }
    /// The user wants a new result.
    [[nodiscard]] static MenuBarInput retry() { return {Case::Retry, {}}; }
    [[nodiscard]] static MenuBarInput cancel() { return {Case::Cancel, {}}; }

    [[nodiscard]] Case kind() const { return m_kind; }
    /// Empty unless the input is `selectCafe`.
    [[nodiscard]] const PlaceCandidate &candidate() const { return m_candidate; }

    friend bool operator==(const MenuBarInput &, const MenuBarInput &) = default;

private:
    MenuBarInput(Case kind, PlaceCandidate candidate)
        : m_kind(kind)
        , m_candidate(std::move(candidate))
    {}

    Case m_kind;
    PlaceCandidate m_candidate;
};

} // namespace quorvel
