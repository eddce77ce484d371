#include "Platform/Wifi/NetworkManager/AccessPoint.h"

#include <QTest>
#include <QVariant>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(quorvel::WifiSecurity)

namespace quorvel::tests {

namespace {

AccessPoint pointWith(const QVariantMap &values)
{
    return AccessPoint::fromValues(u"/point"_s, values);
}

AccessPoint pointOf(int percent)
{
    return pointWith({{u"Strength"_s, QVariant::fromValue(uchar(percent))}});
}

/// How NetworkManager turns a scanned strength into a percentage.
int scannedPercent(int dBm)
{
    return 100 - 100 * (-40 - dBm) / 60;
}

} // namespace

class AccessPointTest final : public QObject
{
    Q_OBJECT

private slots:
    void whatAScanHeardIsBackToItsDBm()
    {
        for (int dBm = -100; dBm <= -40; ++dBm)
            QCOMPARE(pointOf(scannedPercent(dBm)).scannedDBm(), qint64(dBm));
    }

    void aScannedPercentageIsRounded_data()
    {
        QTest::addColumn<int>("percent");
        QTest::addColumn<qint64>("dBm");
        QTest::newRow("0") << 0 << qint64(-100);
        QTest::newRow("1") << 1 << qint64(-99);
        QTest::newRow("2") << 2 << qint64(-99);
        QTest::newRow("50") << 50 << qint64(-70);
        QTest::newRow("67") << 67 << qint64(-60);
        QTest::newRow("99") << 99 << qint64(-41);
        QTest::newRow("100") << 100 << qint64(-40);
        QTest::newRow("nonsense") << 255 << qint64(-40);
    }

    void aScannedPercentageIsRounded()
    {
        QFETCH(const int, percent);
        QFETCH(const qint64, dBm);
        QCOMPARE(pointOf(percent).scannedDBm(), dBm);
    }

    void theCurrentPercentageIsOnAnotherScale()
    {
        QCOMPARE(pointOf(30).currentDBm(), qint64(-90));
        QCOMPARE(pointOf(60).currentDBm(), qint64(-60));
        QCOMPARE(pointOf(100).currentDBm(), qint64(-20));
        QCOMPARE(pointOf(255).currentDBm(), qint64(-20));
    }

    void theFlagsDecideTheSecurity_data()
    {
        QTest::addColumn<uint>("flags");
        QTest::addColumn<uint>("wpa");
        QTest::addColumn<uint>("rsn");
        QTest::addColumn<WifiSecurity>("security");
        QTest::newRow("open") << 0U << 0U << 0U << WifiSecurity::Open;
        QTest::newRow("open, with a flag of no matter") << 2U << 0U << 0U << WifiSecurity::Open;
        QTest::newRow("WEP") << 1U << 0U << 0U << WifiSecurity::Outdated;
        QTest::newRow("WPA") << 1U << 0x144U << 0U << WifiSecurity::Password;
        QTest::newRow("WPA2") << 1U << 0U << 0x188U << WifiSecurity::Password;
        QTest::newRow("WPA2 and WPA3") << 1U << 0U << 0x588U << WifiSecurity::Password;
        QTest::newRow("WPA3") << 1U << 0U << 0x488U << WifiSecurity::StrongPassword;
        QTest::newRow("enterprise") << 1U << 0U << 0x288U << WifiSecurity::Enterprise;
        QTest::newRow("enterprise of WPA") << 1U << 0x200U << 0U << WifiSecurity::Enterprise;
        QTest::newRow("enterprise, 192 bits") << 1U << 0U << 0x2000U << WifiSecurity::Enterprise;
        QTest::newRow("enterprise or password") << 1U << 0U << 0x300U << WifiSecurity::Password;
        QTest::newRow("encrypted, open") << 1U << 0U << 0x800U << WifiSecurity::EncryptedOpen;
        QTest::newRow("open beside an encrypted one") << 0U << 0U << 0x1000U << WifiSecurity::Open;
    }

    void theFlagsDecideTheSecurity()
    {
        QFETCH(const uint, flags);
        QFETCH(const uint, wpa);
        QFETCH(const uint, rsn);
        QFETCH(const WifiSecurity, security);
        const auto point =
            pointWith({{u"Flags"_s, flags}, {u"WpaFlags"_s, wpa}, {u"RsnFlags"_s, rsn}});
        QCOMPARE(point.security, security);
    }

    void whatIsMissingOrNonsenseCountsAsNothing()
    {
        const AccessPoint missing = pointWith({});
        QCOMPARE(missing.path, u"/point"_s);
        QVERIFY(missing.ssid.isEmpty());
        QCOMPARE(missing.strengthPercent, 0);
        const AccessPoint nonsense = pointWith({{u"Strength"_s, u"strong"_s}, {u"Ssid"_s, 7.5}});
        QCOMPARE(nonsense.strengthPercent, 0);
        QCOMPARE(pointWith({{u"Strength"_s, -5}}).strengthPercent, 0);
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::AccessPointTest)
#include "AccessPointTest.moc"
