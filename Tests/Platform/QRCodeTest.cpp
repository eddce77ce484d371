#include "Platform/QRCode/QRCode.h"

#include <QTest>

namespace quorvel::tests {

class QRCodeTest final : public QObject
{
    Q_OBJECT

private slots:
    /// The smallest codes at level M hold 14 and 26 bytes; the largest holds 2331.
    void theCodeIsTheSmallestThatHoldsTheMessage_data()
    {
        QTest::addColumn<int>("bytes");
        QTest::addColumn<int>("size");
        QTest::newRow("empty") << 0 << 21;
        QTest::newRow("fills the first") << 14 << 21;
        QTest::newRow("one too many for the first") << 15 << 25;
        QTest::newRow("fills the second") << 26 << 25;
        QTest::newRow("one too many for the second") << 27 << 29;
        QTest::newRow("fills the last") << 2331 << 177;
    }

    void theCodeIsTheSmallestThatHoldsTheMessage()
    {
        QFETCH(const int, bytes);
        const auto code = QRCode::encode(QByteArray(bytes, 'x'));
        QVERIFY(code);
        QTEST(code->size(), "size");
    }

    void aMessageThatNoCodeHoldsHasNone() { QVERIFY(!QRCode::encode(QByteArray(2332, 'x'))); }

    void digitsAreBytesLikeAllElse()
    {
        const auto code = QRCode::encode(QByteArray(15, '1'));
        QVERIFY(code);
        QCOMPARE(code->size(), 25);
    }

    /// A short message would fit a stronger level. The two bits that name the level must still say
    /// M, which is 00 under the mask 10.
    void theLevelIsNeverRaised_data()
    {
        QTest::addColumn<int>("bytes");
        QTest::newRow("empty") << 0;
        QTest::newRow("fits the strongest level") << 7;
        QTest::newRow("fits level M alone") << 14;
    }

    void theLevelIsNeverRaised()
    {
        QFETCH(const int, bytes);
        const auto code = QRCode::encode(QByteArray(bytes, 'x'));
        QVERIFY(code);
        QVERIFY(code->isDark(0, 8));
        QVERIFY(!code->isDark(1, 8));
    }

    void threeCornersHoldTheFinder()
    {
        const auto code = QRCode::encode("Quorvel");
        QVERIFY(code);
        const int last = code->size() - 1;
        QVERIFY(code->isDark(0, 0) && code->isDark(last, 0) && code->isDark(0, last));
        QVERIFY(!code->isDark(1, 1) && !code->isDark(last - 1, 1) && !code->isDark(1, last - 1));
        QVERIFY(code->isDark(3, 3) && code->isDark(last - 3, 3) && code->isDark(3, last - 3));
    }

    void allAroundIsLight()
    {
        const auto code = QRCode::encode("Quorvel");
        QVERIFY(code);
        const int size = code->size();
        for (int i = -1; i <= size; ++i) {
            QVERIFY(!code->isDark(i, -1) && !code->isDark(i, size));
            QVERIFY(!code->isDark(-1, i) && !code->isDark(size, i));
        }
    }

    void everyByteCounts()
    {
        const auto modules = [](const QByteArray &message) {
            const auto code = QRCode::encode(message);
            QString text;
            for (int i = 0; i < code->size() * code->size(); ++i)
                text += code->isDark(i % code->size(), i / code->size()) ? u'#' : u'.';
            return text;
        };
        QCOMPARE(modules("ab"), modules("ab"));
        QVERIFY(modules("ab") != modules("ac"));
        QVERIFY(modules(QByteArray("a\0b", 3)) != modules(QByteArray("a\0c", 3)));
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::QRCodeTest)
#include "QRCodeTest.moc"
