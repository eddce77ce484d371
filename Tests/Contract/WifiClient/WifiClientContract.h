#pragma once

#include "Platform/Wifi/WifiClient.h"
#include "Platform/Wifi/WifiError.h"

#include <QObject>

#include <memory>
#include <optional>

namespace quorvel::tests {

/// The promises of every wireless client.
class WifiClientContract : public QObject
{
    Q_OBJECT

protected:
    enum class Behaviour { Usual, RefusesScans, RefusesPasswords, NeverListens };

    /// The machine of the client.
    struct Machine
    {
        bool hasRadio = true;
        QList<ScannedNetwork> heard = {};
        /// The index of the network that it is on.
        std::optional<int> joined = {};
        /// The stored password of the first network.
        std::optional<QString> stored = {};
        Behaviour behaviour = Behaviour::Usual;
    };

    /// A client that already knows the whole machine.
    [[nodiscard]] virtual std::unique_ptr<WifiClient> makeOn(const Machine &machine) = 0;

private slots:
    void withoutARadioThereIsNoInterface();
    void aRadioThatIsJoinedToNothingHasNoNetwork();
    void theCurrentNetworkHasItsNameAndStrength();
    void everyAccessPointIsListed();
    void aScanThatIsNotAllowedFails();
    void aNetworkIsJoined();
    void aWrongPasswordFailsTheJoin();
    void aStoredPasswordIsGivenOut();
    void aPasswordThatIsNotStoredIsNone();
    void callsEndLaterAndOnce();
    void openCallsAreDroppedWithTheClient();
};

} // namespace quorvel::tests
