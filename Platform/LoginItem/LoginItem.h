#pragma once

namespace quorvel {

/// The program's entry among the programs that the desktop starts at login.
class LoginItem
{
public:
    enum class Status {
        NotRegistered,
        Enabled,
        /// Registered, but the user switched it off in the desktop's own tool.
        RequiresApproval,
        /// Registered, but its program is missing, unreadable or another one.
        NotFound
    };

    virtual ~LoginItem() = default;

    /// The current state on the desktop.
    [[nodiscard]] virtual Status status() const = 0;

    /// Starts the program at login from now on, even if the user had switched it off. Throws
    /// LoginItemError.
    virtual void registerItem() = 0;

    /// Stops the start at login. Succeeds also if there was none. Throws LoginItemError.
    virtual void unregisterItem() = 0;

    /// The item of the running program.
    [[nodiscard]] static LoginItem &mainApp();
};

} // namespace quorvel
