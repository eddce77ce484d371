#include "Platform/Keychain/SecretService/SecretServiceFailure.h"

#include <libsecret/secret.h>

namespace quorvel {

namespace {

bool saysLocked(const GError &error)
{
    return g_error_matches(&error, SECRET_ERROR, SECRET_ERROR_IS_LOCKED);
}

/// An item can disappear between the search and the call that uses it.
bool saysGone(const GError &error)
{
    return g_error_matches(&error, SECRET_ERROR, SECRET_ERROR_NO_SUCH_OBJECT) ||
           g_error_matches(&error, G_DBUS_ERROR, G_DBUS_ERROR_UNKNOWN_OBJECT) ||
           g_error_matches(&error, G_DBUS_ERROR, G_DBUS_ERROR_UNKNOWN_METHOD);
}

} // namespace

SecretServiceFailure SecretServiceFailure::of(const GError &error)
{
    if (saysLocked(error))
        return {KeychainStatus::interactionNotAllowed};
    if (saysGone(error))
        return {KeychainStatus::itemNotFound};
    // No bus, no service, a dead service or a silent one: for the user these are the same.
    return {KeychainStatus::notAvailable};
}

} // namespace quorvel
