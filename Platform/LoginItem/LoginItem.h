#pragma once

namespace quorvel {

/// The program's entry among those that the desktop starts at login.
class LoginItem
{
public:
    enum class Status {
        NotRegistered,
        Enabled,
        /// Registered, but the user switched it off in the desktop's own tool.
        RequiresApproval,
        /// Registered, but what would start is missing, unreadable or another program.
        NotFound
    };

    virtual ~LoginItem() = default;

    /// As the desktop holds it now.
    [[nodiscard]] virtual Status status() const = 0;

    /// Has the program start at login, also after the user had switched it off. Throws
    /// LoginItemError.
    virtual void registerItem() = 0;

    /// Has it no longer start; fine where it never did. Throws LoginItemError.
    virtual void unregisterItem() = 0;

    /// The one of the running program.
    [[nodiscard]] static LoginItem &mainApp();
};

} // namespace quorvel
