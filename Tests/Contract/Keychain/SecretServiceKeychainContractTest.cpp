#include "Platform/Keychain/SecretServiceKeychain.h"
#include "Tests/Contract/Keychain/KeychainContract.h"
#include "Tests/World/Daemons/KeyringWorld.h"

#include <memory>

namespace quorvel::tests {

/// Uses the real keyring daemon.
class SecretServiceKeychainContractTest final : public KeychainContract
{
    Q_OBJECT

    std::unique_ptr<Keychain> makeEmpty() override
    {
        m_world.tell("forget");
        m_world.tell("start");
        return std::make_unique<SecretServiceKeychain>();
    }

    KeyringWorld m_world;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::SecretServiceKeychainContractTest)
#include "SecretServiceKeychainContractTest.moc"
