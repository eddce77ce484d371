#pragma once

#include "Platform/Keychain/SecretService/GLibObject.h"

#include <QByteArray>
#include <libsecret/secret.h>

namespace quorvel {

/// The connection to the Secret Service, with the encrypted session that carries secrets. It is
/// kept between calls, because opening one costs more than a call.
class SecretServiceConnection final
{
public:
    /// The running service. A session of an earlier service is useless with it. Throws
    /// SecretServiceFailure.
    [[nodiscard]] SecretService *service(GCancellable *cancellable);

private:
    void connectToBus(GCancellable *cancellable);
    void openSession(GCancellable *cancellable);
    /// The process behind the service's name; empty if there is none.
    [[nodiscard]] QByteArray owner(GCancellable *cancellable) const;

    GLibObject<GDBusConnection> m_bus;
    GLibObject<SecretService> m_service;
    QByteArray m_owner;
};

} // namespace quorvel
