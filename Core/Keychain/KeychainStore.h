#pragma once

#include <QString>

#include <optional>

namespace quorvel {

/// The Wi-Fi passwords that the user typed, one a network name, for the view models. Synchronous,
/// each for the one thread that uses it. Every operation may throw KeychainError.
class KeychainStore
{
public:
    virtual ~KeychainStore() = default;

    /// Replaces the password that the network has. When it throws, that one stays as it is.
    virtual void savePassword(const QString &password, const QString &ssid) = 0;
    /// Absent where none was saved.
    [[nodiscard]] virtual std::optional<QString> password(const QString &ssid) = 0;
    /// Fine where none was saved.
    virtual void deletePassword(const QString &ssid) = 0;
};

} // namespace quorvel
