#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <utility>

namespace quorvel {

/// Tells real clicks from echoes of a recent change: a double click counts once, and the click that
/// closed the panel by taking its focus does not open it again.
class PanelToggleGuard final
{
public:
    using MonotonicClock = std::function<std::chrono::milliseconds()>;

    static constexpr std::chrono::milliseconds echoInterval{300};

    explicit PanelToggleGuard(MonotonicClock now = steadyNow)
        : m_now(std::move(now))
    {}

    /// Whether a click now counts. If it does, the next clicks are echoes of it.
    [[nodiscard]] bool admitClick();

    /// The panel closed because it lost the focus, perhaps to a click that is still to come.
    void noteFocusLoss() { m_last = m_now(); }

private:
    static std::chrono::milliseconds steadyNow();

    MonotonicClock m_now;
    std::optional<std::chrono::milliseconds> m_last;
};

} // namespace quorvel
