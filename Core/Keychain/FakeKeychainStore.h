#pragma once

#include "Core/Keychain/KeychainError.h"
#include "Core/Keychain/KeychainStore.h"

#include <QMap>
#include <QStringList>

#include <optional>

namespace quorvel {

/// Passwords in memory. Records the networks that it was asked about, and fails when a test says
/// so.
class FakeKeychainStore final : public KeychainStore
{
public:
    void savePassword(const QString &password, const QString &ssid) override
    {
        saved.append(ssid);
        failIfAsked();
        passwords.insert(ssid, password);
    }

    [[nodiscard]] std::optional<QString> password(const QString &ssid) override
    {
        read.append(ssid);
        failIfAsked();
        const auto found = passwords.constFind(ssid);
        return found == passwords.constEnd() ? std::nullopt : std::optional(*found);
    }

    void deletePassword(const QString &ssid) override
    {
        deleted.append(ssid);
        failIfAsked();
        passwords.remove(ssid);
    }

    QMap<QString, QString> passwords;
    /// While set, every operation throws it.
    std::optional<KeychainError> failure;

    QStringList saved;
    QStringList read;
    QStringList deleted;

private:
    void failIfAsked() const
    {
        if (failure)
            throw KeychainError(*failure);
    }
};

} // namespace quorvel
