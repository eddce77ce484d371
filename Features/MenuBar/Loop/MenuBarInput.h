#pragma once

#include "Models/PlaceCandidate.h"

#include <utility>

namespace quorvel {

/// What the panel's screens can ask of the daily loop.
class MenuBarInput final
{
public:
    enum class Case { SelectCafe, Start, Retry, Cancel };

    /// The visit is about this café.
    [[nodiscard]] static MenuBarInput selectCafe(PlaceCandidate candidate)
    {
        return {Case::SelectCafe, std::move(candidate)};
    }
    /// The panel opens: what is known may do.
    [[nodiscard]] static MenuBarInput start() { return {Case::Start, {}}; }
    /// What is known will not do.
    [[nodiscard]] static MenuBarInput retry() { return {Case::Retry, {}}; }
    [[nodiscard]] static MenuBarInput cancel() { return {Case::Cancel, {}}; }

    [[nodiscard]] Case kind() const { return m_kind; }
    /// Empty but for `selectCafe`.
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
