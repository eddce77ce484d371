#pragma once

#include "Platform/Keychain/Keychain.h"

#include <libsecret/secret.h>

#include <memory>

/// An item of the keychain in the Secret Service's terms.
namespace quorvel::SecretAttributes {

struct Unref
{
    void operator()(GHashTable *table) const noexcept { g_hash_table_unref(table); }
};
using Table = std::unique_ptr<GHashTable, Unref>;

/// The attributes of our items.
[[nodiscard]] const SecretSchema &schema();

/// Whether the service can tell this identity from every other. Its texts are UTF-8 and end at the
/// first NUL.
[[nodiscard]] bool canHold(const KeychainIdentity &identity);

[[nodiscard]] Table of(const KeychainIdentity &identity);

/// The item's label in the desktop's own list of passwords.
[[nodiscard]] QByteArray label(const KeychainIdentity &identity);

} // namespace quorvel::SecretAttributes
