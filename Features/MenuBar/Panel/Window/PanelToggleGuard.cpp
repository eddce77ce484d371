#include "Features/MenuBar/Panel/Window/PanelToggleGuard.h"

namespace quorvel {

bool PanelToggleGuard::admitClick()
{
    const auto now = m_now();
    if (m_last && now - *m_last < echoInterval)
        return false;
    m_last = now;
    return true;
}

std::chrono::milliseconds PanelToggleGuard::steadyNow()
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now().time_since_epoch());
}

} // namespace quorvel
