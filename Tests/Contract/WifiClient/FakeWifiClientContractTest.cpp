#include "Platform/Wifi/FakeWifiClient.h"
#include "Tests/Contract/WifiClient/WifiClientContract.h"

#include <QTest>

#include <memory>

namespace quorvel::tests {

class FakeWifiClientContractTest final : public WifiClientContract
{
    Q_OBJECT

    std::unique_ptr<WifiClient> makeOn(const Machine &machine) override
    {
        auto client = std::make_unique<FakeWifiClient>();
        client->interfaceThere = machine.hasRadio;
        if (machine.joined) {
            const ScannedNetwork &network = machine.heard[*machine.joined];
            client->currentSSID = network.name->text;
            client->currentRSSI = network.rssiDBm;
        }
        if (machine.hasRadio)
            script(*client, machine);
        else
            scriptNoInterface(*client);
        client->storedPasswords.willSucceed(machine.stored);
        return client;
    }

    static void script(FakeWifiClient &client, const Machine &machine)
    {
        if (machine.behaviour == Behaviour::NeverListens)
            client.scans.willHold();
        else if (machine.behaviour == Behaviour::RefusesScans)
            client.scans.willFail(WifiError(WifiError::Code::NotAllowed));
        else
            client.scans.willSucceed(machine.heard);
        if (machine.behaviour == Behaviour::RefusesPasswords)
            client.associations.willFail(WifiError(WifiError::Code::WrongPassword));
        else
            client.associations.willSucceed({});
    }

    static void scriptNoInterface(FakeWifiClient &client)
    {
        client.scans.willFail(WifiError(WifiError::Code::NoInterface));
        client.associations.willFail(WifiError(WifiError::Code::NoInterface));
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::FakeWifiClientContractTest)
#include "FakeWifiClientContractTest.moc"
