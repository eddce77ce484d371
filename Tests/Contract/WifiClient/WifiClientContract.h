#pragma once

#include "Platform/Wifi/WifiClient.h"
#include "Platform/Wifi/WifiError.h"

#include <QObject>

#include <memory>

namespace quorvel::tests {

/// What every wireless client promises.
class WifiClientContract : public QObject
{
    Q_OBJECT

protected:
    enum class Behaviour { Usual, RefusesScans, RefusesPasswords, NeverListens };

    /// The machine that the client is on.
    struct Machine
    {
        bool hasRadio = true;
        QList<ScannedNetwork> heard = {};
        /// Which of those it is joined to.
        std::optional<int> joined = {};
        /// The password that it has stored for the first of those.
        std::optional<QString> stored = {};
        Behaviour behaviour = Behaviour::Usual;
    };

    /// A client that knows all of the machine.
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
