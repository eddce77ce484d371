#include "Platform/Wifi/WifiName.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

class WifiNameTest final : public QObject
{
    Q_OBJECT

private slots:
    void bytesReadAsText_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        QTest::newRow("plain") << QByteArray("Cafe 5G") << u"Cafe 5G"_s;
        QTest::newRow("Vietnamese") << QByteArray("Cà Phê Đá") << u"Cà Phê Đá"_s;
        QTest::newRow("emoji") << QByteArray("☕🇻🇳") << u"☕🇻🇳"_s;
        QTest::newRow("Latin-1") << QByteArray("Caf\xe9") << u"Café"_s;
        QTest::newRow("cut in a letter") << QByteArray("Caf\xc3") << u"Caf\u00c3"_s;
        QTest::newRow("overlong zero") << QByteArray("\xc0\x80") << u"\u00c0\u0080"_s;
        QTest::newRow("a surrogate") << QByteArray("\xed\xa0\x80") << u"\u00ed\u00a0\u0080"_s;
        QTest::newRow("a mark of the byte order") << QByteArray("\xef\xbb\xbfX") << u"\ufeffX"_s;
        QTest::newRow("lines") << QByteArray("a\r\nb\n") << u"a\r\nb\n"_s;
        QTest::newRow("markup") << QByteArray("<img src=x>") << u"<img src=x>"_s;
        QTest::newRow("blanks") << QByteArray("  ") << u"  "_s;
        QTest::newRow("a zero inside") << QByteArray("a\0b", 3) << QString(u"a\0b"_s);
        QTest::newRow("31 zeros and a letter")
            << QByteArray(31, '\0') + 'x' << QString(31, u'\0') + u'x';
    }

    void bytesReadAsText()
    {
        QFETCH(const QByteArray, bytes);
        QFETCH(const QString, text);
        const auto name = WifiName::fromBytes(bytes);
        QVERIFY(name.has_value());
        QCOMPARE(name->bytes, bytes);
        QCOMPARE(name->text, text);
    }

    void aNetworkThatHidesHasNoName_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("one zero") << QByteArray(1, '\0');
        QTest::newRow("32 zeros") << QByteArray(32, '\0');
    }

    void aNetworkThatHidesHasNoName()
    {
        QFETCH(const QByteArray, bytes);
        QVERIFY(!WifiName::fromBytes(bytes).has_value());
    }

    void namesOfOneTextAreToldApartByTheirBytes()
    {
        const auto utf8 = WifiName::fromBytes("Café");
        const auto latin1 = WifiName::fromBytes("Caf\xe9");
        QCOMPARE(utf8->text, latin1->text);
        QVERIFY(utf8 != latin1);
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::WifiNameTest)
#include "WifiNameTest.moc"
