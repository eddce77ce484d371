#include "Services/Wifi/WifiModels.h"

#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

class WifiModelsTest final : public QObject
{
    Q_OBJECT

private slots:
    void everyBandHasItsBarsAndItsLabel_data()
    {
        QTest::addColumn<qint64>("rssiDBm");
        QTest::addColumn<int>("bars");
        QTest::addColumn<QString>("label");
        QTest::newRow("the weakest of all") << std::numeric_limits<qint64>::min() << 1 << u"Weak"_s;
        QTest::newRow("-81") << qint64(-81) << 1 << u"Weak"_s;
        QTest::newRow("-80") << qint64(-80) << 2 << u"Fair"_s;
        QTest::newRow("-71") << qint64(-71) << 2 << u"Fair"_s;
        QTest::newRow("-70") << qint64(-70) << 3 << u"Good"_s;
        QTest::newRow("-61") << qint64(-61) << 3 << u"Good"_s;
        QTest::newRow("-60") << qint64(-60) << 4 << u"Strong"_s;
        QTest::newRow("0") << qint64(0) << 4 << u"Strong"_s;
        QTest::newRow("the strongest") << std::numeric_limits<qint64>::max() << 4 << u"Strong"_s;
    }

    void everyBandHasItsBarsAndItsLabel()
    {
        QFETCH(const qint64, rssiDBm);
        QFETCH(const int, bars);
        QFETCH(const QString, label);
        const WifiSignal signal(rssiDBm);
        QCOMPARE(signal.rssiDBm, rssiDBm);
        QCOMPARE(signal.bars, bars);
        QCOMPARE(signal.label, label);
    }

    void signalsAreEqualOnlyInAllTheirFields()
    {
        QVERIFY(WifiSignal(-65) == WifiSignal(-65));
        QVERIFY(!(WifiSignal(-65) == WifiSignal(-66)));
        WifiSignal relabelled(-65);
        relabelled.label = u"Fair"_s;
        QVERIFY(!(relabelled == WifiSignal(-65)));
        WifiSignal rebarred(-65);
        rebarred.bars = 2;
        QVERIFY(!(rebarred == WifiSignal(-65)));
    }

    void aNetworkIsKnownByItsNameAlone()
    {
        const WifiNetwork near{.ssid = u"Cà Phê 5G"_s, .rssiDBm = -40};
        const WifiNetwork far{.ssid = u"Cà Phê 5G"_s, .rssiDBm = -80};
        QCOMPARE(near.id(), u"Cà Phê 5G"_s);
        QCOMPARE(near.id(), far.id());
    }

    void networksAreEqualOnlyInNameAndStrength()
    {
        const WifiNetwork network{.ssid = u"A"_s, .rssiDBm = -40};
        QVERIFY(network == (WifiNetwork{.ssid = u"A"_s, .rssiDBm = -40}));
        QVERIFY(!(network == (WifiNetwork{.ssid = u"A"_s, .rssiDBm = -41})));
        QVERIFY(!(network == (WifiNetwork{.ssid = u"a"_s, .rssiDBm = -40})));
    }

    void aNetworkHasTheSignalOfItsStrength()
    {
        const WifiNetwork network{.ssid = u"A"_s, .rssiDBm = -75};
        QVERIFY(network.signal() == WifiSignal(-75));
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::WifiModelsTest)
#include "WifiModelsTest.moc"
