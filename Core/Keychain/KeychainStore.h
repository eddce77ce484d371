#pragma once

#include <QString>

#include <optional>

namespace quorvel {

/// The Wi-Fi passwords that the user typed, one per network name, for the view models. Synchronous.
/// One thread uses one store. Every operation may throw KeychainError.
class KeychainStore
{
public:
    virtual ~KeychainStore() = default;

    /// Replaces the network's password. If it throws, the old password stays.
    virtual void savePassword(const QString &password, const QString &ssid) = 0;
    /// Returns nothing if no password was saved.
    [[nodiscard]] virtual std::optional<QString> password(const QString &ssid) = 0;
    /// Succeeds also if no password was saved.
    virtual void deletePassword(const QString &ssid) = 0;
};

} // namespace quorvel
