#include "Platform/Wifi/NetworkManager/NetworkManagerStates.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

using namespace NetworkManagerStates;
using Code = WifiError::Code;

class NetworkManagerStatesTest final : public QObject
{
    Q_OBJECT

private slots:
    void aRadioOnItsWayHasNotFailed()
    {
        for (const uint state : {10U, 20U, 30U, 40U, 50U, 70U, 80U, 90U, 100U, 110U})
            QVERIFY(!failureOfDevice(state, 0, Secured::Yes));
    }

    void aRadioThatAsksForThePasswordAgainWasRefused()
    {
        for (const uint reason : {0U, 8U})
            QVERIFY(failureOfDevice(60, reason, Secured::Yes) == WifiError(Code::WrongPassword));
    }

    void everyReasonOfARadioHasItsMeaning()
    {
        for (uint reason = 0; reason < 80; ++reason) {
            const auto error = failureOfDevice(120, reason, Secured::Yes);
            QVERIFY(error.has_value());
            QCOMPARE(error->code(), expected(reason));
        }
    }

    void anOpenNetworkRefusesNoPassword()
    {
        for (const uint reason : {7U, 8U, 9U, 10U})
            QCOMPARE(failureOfDevice(120, reason, Secured::No)->errorDescription(),
                     u"WiFi failed: The radio's attempt ended for reason %1"_s.arg(reason));
        QVERIFY(failureOfDevice(120, 53, Secured::No) == WifiError(Code::NotFound));
    }

    void everyReasonOfAConnectionHasItsMeaning()
    {
        for (uint reason = 0; reason < 20; ++reason) {
            const Code code = reason == 5                   ? Code::NoAddress
                              : reason == 6                 ? Code::TimedOut
                              : reason == 9 || reason == 10 ? Code::WrongPassword
                              : reason == 14                ? Code::NoInterface
                                                            : Code::Interrupted;
            QCOMPARE(failureOfActive(reason, Secured::Yes).code(), code);
        }
        QCOMPARE(failureOfActive(9, Secured::No).errorDescription(),
                 u"WiFi failed: The connection ended for reason 9"_s);
    }

private:
    static Code expected(uint reason)
    {
        if (reason >= 7 && reason <= 10)
            return Code::WrongPassword;
        if (reason == 5 || reason == 6 || (reason >= 15 && reason <= 17))
            return Code::NoAddress;
        if (reason == 11)
            return Code::TimedOut;
        return reason == 53 ? Code::NotFound : Code::Failed;
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::NetworkManagerStatesTest)
#include "NetworkManagerStatesTest.moc"
