#include "Core/Support/Texts/PrintableText.h"

#include <QJsonDocument>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

class PrintableTextTest final : public QObject
{
    Q_OBJECT

private slots:
    void whatATerminalWouldCarryOutIsReplaced_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("line");
        QTest::newRow("nothing") << QString() << QString();
        QTest::newRow("letters of the world") << u"Cà phê ☕ 咖啡 🇻🇳"_s << u"Cà phê ☕ 咖啡 🇻🇳"_s;
        QTest::newRow("an escape sequence") << u"a\u001b[2Jb"_s << u"a\ufffd[2Jb"_s;
        QTest::newRow("its one-character form") << u"a\u009b2Jb"_s << u"a\ufffd2Jb"_s;
        QTest::newRow("a bell") << u"a\u0007"_s << u"a\ufffd"_s;
        QTest::newRow("the last control character below the letters")
            << u"\u001f !"_s << u"\ufffd !"_s;
        QTest::newRow("the first one above them") << u"~\u007f"_s << u"~\ufffd"_s;
        QTest::newRow("the last one") << u"\u009f\u00a0"_s << u"\ufffd\u00a0"_s;
        QTest::newRow("nothing at all") << QString(QChar(0)) << u"\ufffd"_s;
        QTest::newRow("backspaces")
            << u"safe\b\b\b\bevil"_s << u"safe\ufffd\ufffd\ufffd\ufffdevil"_s;
        QTest::newRow("marks that turn the order")
            << u"a\u202ab\u202ec\u2066d\u2069"_s << u"a\ufffdb\ufffdc\ufffdd\ufffd"_s;
        QTest::newRow("their neighbours stay") << u"\u2029x\u202f\u206a"_s << u" x\u202f\u206a"_s;
        QTest::newRow("line breaks of all kinds")
            << u"a\nb\rc\r\nd\u2028e\u2029f"_s << u"a b c d e f"_s;
        QTest::newRow("a tabulator") << u"a\tb"_s << u"a b"_s;
    }

    void whatATerminalWouldCarryOutIsReplaced()
    {
        QFETCH(const QString, text);
        QFETCH(const QString, line);
        QCOMPARE(PrintableText::line(text), line);
    }

    void linesKeepTheirBreaks()
    {
        QCOMPARE(PrintableText::lines(u"a\nb\rc\r\nd\u2028e\u001b"_s), u"a\nb\nc\nd\ne\ufffd"_s);
    }

    void jsonEscapesAnOrderThatComesAlone_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("json");
        QTest::newRow("delete") << u"\u007f"_s << QByteArray("\\u007f");
        QTest::newRow("a control character of two bytes") << u"\u0080"_s << QByteArray("\\u0080");
        QTest::newRow("a mark that turns the order") << u"\u202a"_s << QByteArray("\\u202a");
        QTest::newRow("none") << u"é"_s << QByteArray("é");
    }

    void jsonEscapesAnOrderThatComesAlone()
    {
        QFETCH(const QString, text);
        QFETCH(const QByteArray, json);
        QCOMPARE(PrintableText::json({{u"a"_s, text}}), "{\"a\":\"" + json + "\"}");
    }

    void jsonEscapesWhatATerminalWouldCarryOut()
    {
        const QJsonObject object{{u"n\u009b"_s, u"\u001b[2J\u007f\u009b\u202e\u2028é"_s}};
        const QByteArray json = PrintableText::json(object);
        QCOMPARE(json, QByteArray("{\"n\\u009b\":\"\\u001b[2J\\u007f\\u009b\\u202e\\u2028é\"}"));
        QCOMPARE(QJsonDocument::fromJson(json).object(), object);
    }
};

} // namespace quorvel::tests

QTEST_APPLESS_MAIN(quorvel::tests::PrintableTextTest)
#include "PrintableTextTest.moc"
