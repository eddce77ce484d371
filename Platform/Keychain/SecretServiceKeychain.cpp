#include "Platform/Keychain/SecretServiceKeychain.h"

#include "Platform/Keychain/SecretService/SecretAttributes.h"
#include "Platform/Keychain/SecretService/SecretServiceCall.h"
#include "Platform/Keychain/SecretService/SecretServiceFailure.h"

namespace quorvel {

namespace {

/// Success if an unlocked item was found.
KeychainStatus::Code statusOf(const FoundItems &items)
{
    if (items.isEmpty())
        return KeychainStatus::itemNotFound;
    return items.unlocked.isEmpty() ? KeychainStatus::interactionNotAllowed
                                    : KeychainStatus::success;
}

} // namespace

SecretServiceKeychain::SecretServiceKeychain()
    : m_connection(std::make_unique<SecretServiceConnection>())
{}

SecretServiceKeychain::~SecretServiceKeychain() = default;

KeychainStatus::Code SecretServiceKeychain::add(const KeychainItem &item)
{
    return run(item.identity, [&](const SecretServiceCall &call) {
        if (!call.items(item.identity).isEmpty())
            return KeychainStatus::duplicateItem;
        const auto collection = call.defaultCollection();
        if (!collection)
            return KeychainStatus::noDefaultKeychain;
        if (secret_collection_get_locked(collection.get()))
            return KeychainStatus::interactionNotAllowed;
        call.create(*collection, item);
        return KeychainStatus::success;
    });
}

KeychainStatus::Code SecretServiceKeychain::update(const KeychainIdentity &identity,
                                                   const QByteArray &valueData)
{
    return run(identity, [&](const SecretServiceCall &call) {
        const auto items = call.items(identity);
        const auto status = statusOf(items);
        if (status == KeychainStatus::success)
            call.setSecret(items.unlocked.constFirst(), valueData);
        return status;
    });
}

KeychainMatch SecretServiceKeychain::copyMatching(const KeychainIdentity &identity)
{
    KeychainMatch match;
    match.status = run(identity, [&](const SecretServiceCall &call) {
        const auto items = call.items(identity);
        const auto status = statusOf(items);
        if (status == KeychainStatus::success)
            match.valueData = call.secret(items.unlocked.constFirst());
        return status;
    });
    return match;
}

KeychainStatus::Code SecretServiceKeychain::remove(const KeychainIdentity &identity)
{
    return run(identity, [&](const SecretServiceCall &call) {
        const auto items = call.items(identity);
        if (items.isEmpty())
            return KeychainStatus::itemNotFound;
        if (!items.locked.isEmpty())
            return KeychainStatus::interactionNotAllowed;
        for (const auto &path : items.unlocked)
            call.remove(path);
        return KeychainStatus::success;
    });
}

KeychainStatus::Code SecretServiceKeychain::run(const KeychainIdentity &identity,
                                                const Operation &operation)
{
    if (!SecretAttributes::canHold(identity))
        return KeychainStatus::invalidParameter;
    try {
        return operation(SecretServiceCall(*m_connection));
    } catch (const SecretServiceFailure &failure) {
        return failure.status;
    }
}

Keychain &Keychain::standard()
{
    static SecretServiceKeychain keychain;
    return keychain;
}

std::unique_ptr<Keychain> Keychain::makeDetached()
{
    return std::make_unique<SecretServiceKeychain>();
}

} // namespace quorvel
