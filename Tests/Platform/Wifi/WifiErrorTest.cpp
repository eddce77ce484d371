#include "Platform/Wifi/WifiError.h"

#include <QTest>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(quorvel::WifiError::Code)

namespace quorvel::tests {

using Code = WifiError::Code;

class WifiErrorTest final : public QObject
{
    Q_OBJECT

private slots:
    void everyCodeHasItsSentence_data()
    {
        QTest::addColumn<Code>("code");
        QTest::addColumn<QString>("sentence");
        QTest::newRow("NoInterface") << Code::NoInterface << u"No WiFi interface available"_s;
        QTest::newRow("RadioOff") << Code::RadioOff << u"WiFi is turned off"_s;
        QTest::newRow("NotAllowed")
            << Code::NotAllowed << u"The system does not allow this use of WiFi"_s;
        QTest::newRow("TimedOut") << Code::TimedOut << u"WiFi took too long to answer"_s;
        QTest::newRow("NotFound") << Code::NotFound << u"The network is no longer nearby"_s;
        QTest::newRow("WrongPassword")
            << Code::WrongPassword << u"The password of the network is wrong"_s;
        QTest::newRow("EnterpriseNetwork")
            << Code::EnterpriseNetwork
            << u"The network needs a user name, which Quorvel cannot give"_s;
        QTest::newRow("UnsupportedSecurity")
            << Code::UnsupportedSecurity
            << u"The network is protected in a way that is no longer supported"_s;
        QTest::newRow("NoAddress")
            << Code::NoAddress << u"The network gave this computer no address"_s;
        QTest::newRow("Interrupted")
            << Code::Interrupted << u"The connection was ended before it was made"_s;
        QTest::newRow("ServiceGone")
            << Code::ServiceGone << u"The network service is not running"_s;
        QTest::newRow("Failed") << Code::Failed << u"WiFi failed: Device busy"_s;
    }

    void everyCodeHasItsSentence()
    {
        QFETCH(const Code, code);
        QFETCH(const QString, sentence);
        const WifiError error(code, u"Device busy"_s);
        QCOMPARE(error.code(), code);
        QCOMPARE(error.errorDescription(), sentence);
    }

    void errorsAreEqualOnlyWithTheSameCodeAndReason()
    {
        QVERIFY(WifiError(Code::Failed, u"a"_s) == WifiError(Code::Failed, u"a"_s));
        QVERIFY(!(WifiError(Code::Failed, u"a"_s) == WifiError(Code::Failed, u"b"_s)));
        QVERIFY(!(WifiError(Code::TimedOut) == WifiError(Code::NotFound)));
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::WifiErrorTest)
#include "WifiErrorTest.moc"
