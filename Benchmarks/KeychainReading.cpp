#include "Benchmarks/Comparison.h"
#include "Platform/Keychain/SecretServiceKeychain.h"

#include <QtGlobal>
#include <libsecret/secret.h>

using namespace quorvel;
using namespace quorvel::benchmarks;
using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 201;
constexpr int networks = 50;
constexpr double aimedRatio = 1.5;

const QString service = u"com.zantho.quorvel.wifi"_s;

/// Our items' attributes, in the notation of libsecret's simple calls.
const SecretSchema schema = {"com.zantho.quorvel.wifi",
                             SECRET_SCHEMA_NONE,
                             {{"service", SECRET_SCHEMA_ATTRIBUTE_STRING},
                              {"account", SECRET_SCHEMA_ATTRIBUTE_STRING},
                              {nullptr, SECRET_SCHEMA_ATTRIBUTE_STRING}},
                             0,
                             nullptr,
                             nullptr,
                             nullptr,
                             nullptr,
                             nullptr,
                             nullptr,
                             nullptr};

KeychainIdentity network(int number)
{
    return {.service = service, .account = u"net %1"_s.arg(number)};
}

void require(bool holds)
{
    if (!holds)
        qFatal("the keychain does not answer as it should");
}

/// The call that `secret-tool lookup` makes, in this process. It would try to unlock.
Milliseconds lookup(int number, bool isThere)
{
    const QByteArray account = network(number).account.toUtf8();
    const QByteArray serviceName = service.toUtf8();
    return timeOf([&] {
        gchar *password = secret_password_lookup_sync(&schema, nullptr, nullptr, "service",
                                                      serviceName.constData(), "account",
                                                      account.constData(), nullptr);
        require((password != nullptr) == isThere);
        secret_password_free(password);
    });
}

Milliseconds read(Keychain &keychain, int number, KeychainStatus::Code status)
{
    return timeOf([&] { require(keychain.copyMatching(network(number)).status == status); });
}

Comparison reading(Keychain &keychain, int number, bool isThere)
{
    const auto status = isThere ? KeychainStatus::success : KeychainStatus::itemNotFound;
    return interleaved(
        rounds, [&] { return read(keychain, number, status); },
        [&] { return lookup(number, isThere); });
}

} // namespace

/// Compares reading a password with libsecret's own call. It needs a running daemon, which
/// keychain_benchmark.py starts. Both sessions are open before.
int main()
{
    SecretServiceKeychain keychain;
    for (int i = 0; i < networks; ++i)
        require(keychain.add({.identity = network(i), .valueData = "12345678"}) ==
                KeychainStatus::success);
    lookup(0, true);

    printHeading("Keychain of 50 networks, against secret_password_lookup_sync in this process");
    printRow("read a password that is there", reading(keychain, networks / 2, true), aimedRatio);
    printRow("read a password that was never saved", reading(keychain, networks, false),
             aimedRatio);
    return 0;
}
