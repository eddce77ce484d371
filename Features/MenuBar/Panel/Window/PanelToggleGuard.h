#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <utility>

namespace quorvel {

/// Tells a click that means something from one that only echoes what just happened to the panel:
/// a double click counts once, and the click that took the focus from the panel, and closed it so,
/// does not open it again.
class PanelToggleGuard final
{
public:
    using MonotonicClock = std::function<std::chrono::milliseconds()>;

    static constexpr std::chrono::milliseconds echoInterval{300};

    explicit PanelToggleGuard(MonotonicClock now = steadyNow)
        : m_now(std::move(now))
    {}

    /// Whether a click now counts; when it does, the next ones are echoes of it.
    [[nodiscard]] bool admitClick();

    /// The panel closed because it lost the focus, perhaps to a click that is still to arrive.
    void noteFocusLoss() { m_last = m_now(); }

private:
    static std::chrono::milliseconds steadyNow();

    MonotonicClock m_now;
    std::optional<std::chrono::milliseconds> m_last;
};

} // namespace quorvel
