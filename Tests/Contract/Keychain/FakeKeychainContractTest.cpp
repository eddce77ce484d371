#include "Platform/Keychain/FakeKeychain.h"
#include "Tests/Contract/Keychain/KeychainContract.h"

#include <QTest>

#include <memory>

namespace quorvel::tests {

class FakeKeychainContractTest final : public KeychainContract
{
    Q_OBJECT

    std::unique_ptr<Keychain> makeEmpty() override { return std::make_unique<FakeKeychain>(); }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::FakeKeychainContractTest)
#include "FakeKeychainContractTest.moc"
