#include "Services/Wifi/WifiQRGenerator.h"

#include "Platform/QRCode/QRCode.h"
#include "Tests/Support/QRReader.h"

#include <QPoint>
#include <QTest>

#include <cmath>
#include <limits>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

namespace {

QString payloadOf(const QString &ssid, const QString &password)
{
    return WifiQRGenerator::payload(ssid, password, u"WPA"_s);
}

} // namespace

class WifiQRGeneratorTest final : public QObject
{
    Q_OBJECT

private slots:
    void thePayloadIsEscaped_data()
    {
        QTest::addColumn<QString>("ssid");
        QTest::addColumn<QString>("password");
        QTest::addColumn<QString>("auth");
        QTest::addColumn<QString>("payload");

        const auto row = [](const char *name, const QString &ssid, const QString &password,
                            const QString &auth, const QString &payload) {
            QTest::newRow(name) << ssid << password << auth << payload;
        };
        row("plain", u"Cafe"_s, u"12345678"_s, u"WPA"_s, u"WIFI:T:WPA;S:Cafe;P:12345678;;"_s);
        row("example", u"Cafe;1"_s, u"a:b"_s, u"WPA"_s, u"WIFI:T:WPA;S:Cafe\\;1;P:a\\:b;;"_s);
        row("backslash", u"\\"_s, u"a\\b"_s, u"WPA"_s, u"WIFI:T:WPA;S:\\\\;P:a\\\\b;;"_s);
        row("semicolon", u";"_s, u"a;b"_s, u"WPA"_s, u"WIFI:T:WPA;S:\\;;P:a\\;b;;"_s);
        row("comma", u","_s, u"a,b"_s, u"WPA"_s, u"WIFI:T:WPA;S:\\,;P:a\\,b;;"_s);
        row("colon", u":"_s, u"a:b"_s, u"WPA"_s, u"WIFI:T:WPA;S:\\:;P:a\\:b;;"_s);
        row("quote", u"\""_s, u"a\"b"_s, u"WPA"_s, u"WIFI:T:WPA;S:\\\";P:a\\\"b;;"_s);
        row("all five, in a row", u"\\;,:\""_s, u"\":,;\\"_s, u"WPA"_s,
            u"WIFI:T:WPA;S:\\\\\\;\\,\\:\\\";P:\\\"\\:\\,\\;\\\\;;"_s);
        row("already escaped", u"\\;"_s, u"\\\\"_s, u"WPA"_s,
            u"WIFI:T:WPA;S:\\\\\\;;P:\\\\\\\\;;"_s);
        row("neighbours stay", u"'.!|/-_%20"_s, u"ABCDEF12"_s, u"WPA"_s,
            u"WIFI:T:WPA;S:'.!|/-_%20;P:ABCDEF12;;"_s);
        row("blanks stay", u" a b "_s, u"\t\n"_s, u"WPA"_s, u"WIFI:T:WPA;S: a b ;P:\t\n;;"_s);
        row("Vietnamese", u"Quán Cà Phê Đợi"_s, u"mật khẩu"_s, u"WPA"_s,
            u"WIFI:T:WPA;S:Quán Cà Phê Đợi;P:mật khẩu;;"_s);
        row("emoji", u"☕️🛜"_s, u"👩‍💻"_s, u"WPA"_s,
            u"WIFI:T:WPA;S:☕️🛜;P:👩‍💻;;"_s);
        row("all empty", QString(), QString(), QString(), u"WIFI:T:;S:;P:;;"_s);
        row("authentication as it is", u"a"_s, u"b"_s, u"\\;,:\""_s, u"WIFI:T:\\;,:\";S:a;P:b;;"_s);
        row("lower-case authentication", u"a"_s, u""_s, u"nopass"_s, u"WIFI:T:nopass;S:a;P:;;"_s);
    }

    void thePayloadIsEscaped()
    {
        QFETCH(const QString, ssid);
        QFETCH(const QString, password);
        QFETCH(const QString, auth);
        QTEST(WifiQRGenerator::payload(ssid, password, auth), "payload");
    }

    void theSideIsModulesAndQuietZoneTimesTheScale_data()
    {
        QTest::addColumn<double>("scale");
        QTest::addColumn<int>("side");
        // 30 bytes take 29 modules, and 37 with the quiet zone.
        QTest::newRow("as used") << 8.0 << 296;
        QTest::newRow("one pixel a module") << 1.0 << 37;
        QTest::newRow("rounded up") << 1.5 << 56;
        QTest::newRow("rounded down") << 1.2 << 44;
        QTest::newRow("smallest picture") << 0.5 / 37 << 1;
        QTest::newRow("largest picture") << 8192.4 / 37 << 8192;
    }

    void theSideIsModulesAndQuietZoneTimesTheScale()
    {
        QFETCH(const double, scale);
        const auto image = WifiQRGenerator::image(payloadOf(u"Cafe"_s, u"12345678"_s), scale);
        QVERIFY(image);
        QTEST(image->width(), "side");
        QTEST(image->height(), "side");
        QCOMPARE(image->devicePixelRatio(), 1.0);
    }

    void aScaleThatMakesNoPictureHasNone_data()
    {
        QTest::addColumn<double>("scale");
        QTest::newRow("none") << 0.0;
        QTest::newRow("less than half a pixel") << 0.49 / 37;
        QTest::newRow("negative") << -8.0;
        QTest::newRow("larger than any picture") << 8192.6 / 37;
        QTest::newRow("huge") << 1e300;
        QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
        QTest::newRow("no number") << std::nan("");
    }

    void aScaleThatMakesNoPictureHasNone()
    {
        QFETCH(const double, scale);
        QVERIFY(!WifiQRGenerator::image(payloadOf(u"Cafe"_s, u"12345678"_s), scale));
    }

    void aPayloadTooLongForACodeHasNone()
    {
        QVERIFY(WifiQRGenerator::image(QString(2331, u'x'), 1));
        QVERIFY(!WifiQRGenerator::image(QString(2332, u'x'), 1));
        // Two bytes each: the limit counts bytes.
        QVERIFY(!WifiQRGenerator::image(QString(1166, u'é'), 1));
    }

    void everyModuleIsABlockOfBlackOrWhite_data()
    {
        QTest::addColumn<double>("scale");
        QTest::newRow("as used") << 8.0;
        QTest::newRow("one pixel a module") << 1.0;
        QTest::newRow("uneven") << 2.5;
    }

    void everyModuleIsABlockOfBlackOrWhite()
    {
        QFETCH(const double, scale);
        const QString payload = payloadOf(u"Cafe"_s, u"12345678"_s);
        const auto image = WifiQRGenerator::image(payload, scale);
        const auto code = QRCode::encode(payload.toUtf8());
        QVERIFY(image && code);
        for (int y = 0; y < image->height(); ++y) {
            for (int x = 0; x < image->width(); ++x) {
                const bool isDark =
                    code->isDark(int((x + 0.5) / scale) - 4, int((y + 0.5) / scale) - 4);
                QCOMPARE(image->pixel(x, y), isDark ? 0xff000000 : 0xffffffff);
            }
        }
    }

    void fourModulesAroundTheCodeAreWhite()
    {
        const auto image = WifiQRGenerator::image(payloadOf(u"Cafe"_s, u"12345678"_s), 8);
        QVERIFY(image);
        for (int i = 0; i < image->width(); ++i) {
            for (int depth = 0; depth < 32; ++depth) {
                for (const QPoint point : {QPoint(i, depth), QPoint(i, image->height() - 1 - depth),
                                           QPoint(depth, i), QPoint(image->width() - 1 - depth, i)})
                    QCOMPARE(image->pixel(point), 0xffffffff);
            }
        }
        QCOMPARE(image->pixel(32, 32), 0xff000000);
    }

    void anIndependentReaderReadsThePayload_data()
    {
        QTest::addColumn<QString>("ssid");
        QTest::addColumn<QString>("password");
        QTest::addColumn<double>("scale");

        QTest::newRow("plain") << u"Cafe"_s << u"12345678"_s << 8.0;
        QTest::newRow("all five escaped") << u"\\;,:\""_s << u"\":,;\\\\\\"_s << 8.0;
        QTest::newRow("Vietnamese") << u"Quán Cà Phê Đợi"_s << u"mật khẩu rất dài"_s << 8.0;
        QTest::newRow("emoji") << u"☕️🛜"_s << u"👩‍💻👍🏽"_s << 8.0;
        QTest::newRow("63 characters") << u"Cafe"_s << QString(63, u'w') << 8.0;
        QTest::newRow("63 characters, all escaped")
            << QString(32, u';') << QString(63, u'\\') << 8.0;
        QTest::newRow("empty password") << u"Open"_s << u""_s << 8.0;
        QTest::newRow("all empty") << u""_s << u""_s << 8.0;
        QTest::newRow("markup and new lines") << u"<b>a\nb</b>"_s << u"\r\n\t"_s << 8.0;
        QTest::newRow("NULs") << QString(32, QChar(u'\0')) << u"12345678"_s << 8.0;
        QTest::newRow("uneven scale") << u"Cafe"_s << u"12345678"_s << 3.3;
    }

    void anIndependentReaderReadsThePayload()
    {
        QFETCH(const QString, ssid);
        QFETCH(const QString, password);
        QFETCH(const double, scale);
        const QString payload = payloadOf(ssid, password);
        const auto image = WifiQRGenerator::image(payload, scale);
        QVERIFY(image);
        QCOMPARE(QRReader::read(*image), payload.toUtf8());
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::WifiQRGeneratorTest)
#include "WifiQRGeneratorTest.moc"
