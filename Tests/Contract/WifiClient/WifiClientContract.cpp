#include "Tests/Contract/WifiClient/WifiClientContract.h"

#include "Tests/Platform/Wifi/NetworkManager/WifiOutcomes.h"

#include <QCoreApplication>

#include <algorithm>
#include <optional>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

namespace {

using Code = WifiError::Code;

/// A network this strong has the same percentage when it is scanned and when it is joined.
constexpr qint64 usualDBm = -70;

ScannedNetwork heard(const QByteArray &name, qint64 rssiDBm = usualDBm)
{
    return {.name = WifiName::fromBytes(name), .rssiDBm = rssiDBm};
}

} // namespace

void WifiClientContract::withoutARadioThereIsNoInterface()
{
    const auto client = makeOn({.hasRadio = false});
    QVERIFY(!client->hasInterface());
    QCOMPARE(client->ssid(), std::nullopt);
    QCOMPARE(client->rssiValue(), qint64(0));
    QVERIFY(scanOf(*client).error() == WifiError(Code::NoInterface));
    QVERIFY(joinOf(*client, "Cafe", u"12345678"_s).error() == WifiError(Code::NoInterface));
}

void WifiClientContract::aRadioThatIsJoinedToNothingHasNoNetwork()
{
    const auto client = makeOn({.heard = {heard("Cafe")}});
    QVERIFY(client->hasInterface());
    QCOMPARE(client->ssid(), std::nullopt);
    QCOMPARE(client->rssiValue(), qint64(0));
}

void WifiClientContract::theCurrentNetworkHasItsNameAndStrength()
{
    const auto client = makeOn({.heard = {heard("Bar", -40), heard("Cà Phê")}, .joined = 1});
    QVERIFY(client->hasInterface());
    QCOMPARE(client->ssid(), u"Cà Phê"_s);
    QCOMPARE(client->rssiValue(), usualDBm);
}

void WifiClientContract::everyAccessPointIsListed()
{
    const QList<ScannedNetwork> networks{heard("Cafe", -40), heard("Cafe", -100), heard("Caf\xe9"),
                                         heard(QByteArray())};
    const auto found = scanOf(*makeOn({.heard = networks})).take();
    // In any order, since the client promises none.
    QCOMPARE(found.size(), networks.size());
    QVERIFY(std::is_permutation(found.begin(), found.end(), networks.begin()));
}

void WifiClientContract::aScanThatIsNotAllowedFails()
{
    const auto client = makeOn({.heard = {heard("Cafe")}, .behaviour = Behaviour::RefusesScans});
    QVERIFY(scanOf(*client).error() == WifiError(Code::NotAllowed));
}

void WifiClientContract::aNetworkIsJoined()
{
    const auto client = makeOn({.heard = {heard("Cafe")}});
    QVERIFY(!joinOf(*client, "Cafe", u"12345678"_s).error());
}

void WifiClientContract::aWrongPasswordFailsTheJoin()
{
    const auto client =
        makeOn({.heard = {heard("Cafe")}, .behaviour = Behaviour::RefusesPasswords});
    QVERIFY(joinOf(*client, "Cafe", u"12345678"_s).error() == WifiError(Code::WrongPassword));
}

void WifiClientContract::aStoredPasswordIsGivenOut()
{
    const QString password = u" a\\b \"c\" mật khẩu "_s;
    const auto client = makeOn({.heard = {heard("Cafe")}, .stored = password});
    QCOMPARE(passwordOf(*client, u"Cafe"_s).take(), password);
}

void WifiClientContract::aPasswordThatIsNotStoredIsNone()
{
    QCOMPARE(passwordOf(*makeOn({.heard = {heard("Cafe")}}), u"Cafe"_s).take(), std::nullopt);
}

void WifiClientContract::callsEndLaterAndOnce()
{
    const auto client = makeOn({.heard = {heard("Cafe")}, .stored = u"12345678"_s});
    auto scan = scanOf(*client);
    auto join = joinOf(*client, "Cafe", u"12345678"_s);
    auto password = passwordOf(*client, u"Cafe"_s);
    QVERIFY(!scan.hasEnded() && !join.hasEnded() && !password.hasEnded());
    // A second answer would abort the test.
    QVERIFY(!scan.error() && !join.error() && !password.error());
}

void WifiClientContract::openCallsAreDroppedWithTheClient()
{
    auto client = makeOn({.heard = {heard("Cafe")}, .behaviour = Behaviour::NeverListens});
    const auto scan = scanOf(*client);
    // Calls end in their order unless something holds them.
    QVERIFY(!passwordOf(*client, u"Cafe"_s).error());
    QVERIFY(!scan.hasEnded());
    client.reset();
    QCoreApplication::processEvents();
    QVERIFY(!scan.hasEnded());
}

} // namespace quorvel::tests
