#include "Platform/Keychain/SecretService/SecretServiceFailure.h"

#include <libsecret/secret.h>

namespace quorvel {

namespace {

bool saysLocked(const GError &error)
{
    return g_error_matches(&error, SECRET_ERROR, SECRET_ERROR_IS_LOCKED);
}

/// An item can go between the search that found it and the call that is about it.
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
    // No bus, no service on it, a service that died or does not answer: to the user it is one.
    return {KeychainStatus::notAvailable};
}

} // namespace quorvel
