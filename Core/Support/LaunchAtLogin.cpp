#include "Core/Support/LaunchAtLogin.h"

#include "Platform/LoginItem/LoginItem.h"

namespace quorvel::LaunchAtLogin {

bool isEnabled(const LoginItem &item)
{
    return item.status() == LoginItem::Status::Enabled;
}

void setEnabled(bool enabled, LoginItem &item)
{
    if (enabled == isEnabled(item))
        return;
    if (enabled)
        item.registerItem();
    else
        item.unregisterItem();
}

} // namespace quorvel::LaunchAtLogin
