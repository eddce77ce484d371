#pragma once

#include <QLatin1StringView>

class QUrl;

namespace quorvel {

/// The desktop's own settings, for screens that the user can only get past by changing something
/// there.
class SystemSettings
{
public:
    /// The page on which the user lets programs know the position.
    static constexpr QLatin1StringView locationPrivacy{
        "x-apple.systempreferences:com.apple.preference.security?Privacy_LocationServices"};

    virtual ~SystemSettings() = default;

    /// Brings up the page of that address, or the settings' front page on a desktop that has no
    /// such page; false where there are no settings to bring up, or the address is not known.
    [[nodiscard]] virtual bool open(const QUrl &address) = 0;
};

} // namespace quorvel
