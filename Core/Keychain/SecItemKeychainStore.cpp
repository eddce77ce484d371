#include "Core/Keychain/SecItemKeychainStore.h"

#include "Core/Keychain/KeychainError.h"
#include "Platform/Keychain/WipedOnExit.h"

#include <QStringDecoder>

#include <optional>
#include <utility>

namespace quorvel {

namespace {

void check(KeychainStatus::Code status, KeychainError::Operation operation)
{
    if (status != KeychainStatus::success)
        throw KeychainError::unhandledStatus(status, operation);
}

/// Keeps every code point of the password, even a leading byte order mark.
QString decoded(const QByteArray &utf8)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless |
                                                     QStringDecoder::Flag::ConvertInitialBom);
    QString text = decoder.decode(utf8);
    if (decoder.hasError())
        throw KeychainError::unexpectedItemFormat();
    return text;
}

} // namespace

SecItemKeychainStore::SecItemKeychainStore(QString service, Keychain &keychain)
    : m_service(std::move(service))
    , m_keychain(&keychain)
{}

void SecItemKeychainStore::savePassword(const QString &password, const QString &ssid)
{
    KeychainItem item{.identity = identityQuery(ssid),
                      .valueData = password.toUtf8(),
                      .accessible = KeychainItem::Accessible::AfterFirstUnlock,
                      .synchronizable = KeychainItem::Synchronizable::No};
    const WipedOnExit wiped(item.valueData);
    auto status = m_keychain->add(item);
    if (status == KeychainStatus::duplicateItem)
        status = m_keychain->update(item.identity, item.valueData);
    check(status, KeychainError::Operation::Save);
}

std::optional<QString> SecItemKeychainStore::password(const QString &ssid)
{
    auto [status, valueData] = m_keychain->copyMatching(identityQuery(ssid));
    if (status == KeychainStatus::itemNotFound)
        return std::nullopt;
    check(status, KeychainError::Operation::Read);
    if (!valueData)
        throw KeychainError::unexpectedItemFormat();
    const WipedOnExit wiped(*valueData);
    return decoded(*valueData);
}

void SecItemKeychainStore::deletePassword(const QString &ssid)
{
    const auto status = m_keychain->remove(identityQuery(ssid));
    // There was no item: it is gone, as asked.
    if (status != KeychainStatus::itemNotFound)
        check(status, KeychainError::Operation::Delete);
}

KeychainIdentity SecItemKeychainStore::identityQuery(const QString &ssid) const
{
    return {.service = m_service, .account = ssid};
}

} // namespace quorvel
