#include "Features/CheckIn/Wifi/StoredPasswords.h"

#include "Core/Keychain/KeychainError.h"

#include <optional>

namespace quorvel {

StoredPasswords::StoredPasswords(KeychainStore &keychainStore)
    : m_keychainStore(keychainStore)
{}

void StoredPasswords::learn(const QStringList &ssids)
{
    for (const QString &ssid : ssids) {
        if (m_hasFailed)
            return;
        if (!m_isSaved.contains(ssid))
            static_cast<void>(read(ssid));
    }
}

void StoredPasswords::forget()
{
    m_isSaved.clear();
    m_hasFailed = false;
}

std::optional<QString> StoredPasswords::read(const QString &ssid)
{
    try {
        auto password = m_keychainStore.password(ssid);
        m_isSaved.insert(ssid, password.has_value());
        return password;
    } catch (const KeychainError &error) {
        // Silent: an unreadable password is not shown. An item that is not text says nothing about
        // the others.
        m_isSaved.insert(ssid, false);
        m_hasFailed = error.kind() == KeychainError::Case::UnhandledStatus;
        return std::nullopt;
    }
}

void StoredPasswords::save(const QString &password, const QString &ssid)
{
    m_keychainStore.savePassword(password, ssid);
    m_isSaved.insert(ssid, true);
}

} // namespace quorvel
