#pragma once

#include "Platform/Keychain/SecretService/GLibObject.h"

#include <QByteArray>
#include <libsecret/secret.h>

namespace quorvel {

/// The way to the Secret Service, with the encrypted session that secrets travel in. Kept from call
/// to call, because opening one costs more than the call itself.
class SecretServiceConnection final
{
public:
    /// The service that runs now; a session of an earlier one is of no use to it. Throws
    /// SecretServiceFailure.
    [[nodiscard]] SecretService *service(GCancellable *cancellable);

private:
    void connectToBus(GCancellable *cancellable);
    void openSession(GCancellable *cancellable);
    /// The process behind the service's name; empty where there is none.
    [[nodiscard]] QByteArray owner(GCancellable *cancellable) const;

    GLibObject<GDBusConnection> m_bus;
    GLibObject<SecretService> m_service;
    QByteArray m_owner;
};

} // namespace quorvel
