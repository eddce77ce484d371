#pragma once

#include <QLatin1StringView>

class QUrl;

namespace quorvel {

/// The desktop's settings, for screens that the user can leave only by changing a setting.
class SystemSettings
{
public:
    /// The page where the user allows programs to know the position.
    static constexpr QLatin1StringView locationPrivacy{
        "x-apple.systempreferences:com.apple.preference.security?Privacy_LocationServices"};

    virtual ~SystemSettings() = default;

    /// Opens the page of that address, or the front page if the desktop has no such page. Returns
    /// false if there are no settings to open or the address is unknown.
    [[nodiscard]] virtual bool open(const QUrl &address) = 0;
};

} // namespace quorvel
