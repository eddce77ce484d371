#include "Features/MenuBar/Panel/LaunchAtLoginToggle.h"

#include "Platform/Errors/LocalizedError.h"

namespace quorvel {

LaunchAtLoginToggle::LaunchAtLoginToggle(LaunchAtLoginSwitch loginItem, QObject *parent)
    : QObject(parent)
    , m_loginItem(std::move(loginItem))
{}

void LaunchAtLoginToggle::refresh()
{
    const bool enabled = m_loginItem.isEnabled();
    if (enabled != m_enabled) {
        m_enabled = enabled;
        emit enabledChanged();
    }
}

void LaunchAtLoginToggle::setEnabled(bool enabled)
{
    try {
        m_loginItem.setEnabled(enabled);
    } catch (const LocalizedError &) {
        // Silent: the toggle, which stays where it was, is the answer.
    }
    refresh();
}

} // namespace quorvel
