#include "Platform/LoginItem/DesktopEntry.h"

#include <QTest>

using namespace quorvel;
using namespace Qt::StringLiterals;

class DesktopEntryTest final : public QObject
{
    Q_OBJECT

private slots:
    void readsTheMainGroupWhateverSurroundsIt_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("plain") << QByteArray("[Desktop Entry]\nName=Quorvel\nHidden=true\n");
        QTest::newRow("CRLF") << QByteArray("[Desktop Entry]\r\nName=Quorvel\r\nHidden=true\r\n");
        QTest::newRow("no last line end")
            << QByteArray("[Desktop Entry]\nName=Quorvel\nHidden=true");
        QTest::newRow("comments and blank lines")
            << QByteArray("# made by hand\n\n[Desktop Entry]\n\n#Name=No\nName=Quorvel\n"
                          "  # Hidden=false\nHidden=true\n");
        QTest::newRow("blanks around") << QByteArray("[Desktop Entry] \n Name = Quorvel \n"
                                                     "Hidden= true\n");
        QTest::newRow("other groups")
            << QByteArray("[Before]\nName=Before\n[Desktop Entry]\nName=Quorvel\nHidden=true\n"
                          "[Desktop Action open]\nName=Open\nHidden=false\n");
        QTest::newRow("the group comes twice")
            << QByteArray("[Desktop Entry]\nName=Quorvel\n[Other]\nName=Other\n"
                          "[Desktop Entry]\nHidden=true\n");
        QTest::newRow("the last of equal keys wins")
            << QByteArray("[Desktop Entry]\nName=First\nName=Quorvel\nHidden=true\n");
        QTest::newRow("lines of no meaning")
            << QByteArray("[Desktop Entry]\nName=Quorvel\nnonsense\n=value\nHidden=true\n");
    }

    void readsTheMainGroupWhateverSurroundsIt()
    {
        QFETCH(const QByteArray, text);
        const DesktopEntry::Values expected{{u"Name"_s, u"Quorvel"_s}, {u"Hidden"_s, u"true"_s}};
        QCOMPARE(DesktopEntry::values(text), expected);
    }

    void withoutAMainGroupThereAreNoValues_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("no group") << QByteArray("Name=Quorvel\n");
        QTest::newRow("another group") << QByteArray("[desktop entry]\nName=Quorvel\n");
        QTest::newRow("no text") << QByteArray("\x00\xff\xfe\x80", 4);
    }

    void withoutAMainGroupThereAreNoValues()
    {
        QFETCH(const QByteArray, text);
        QVERIFY(!DesktopEntry::values(text));
    }

    void translatedKeysAreKeysOfTheirOwn()
    {
        const auto values = DesktopEntry::values("[Desktop Entry]\nName[vi]=Quán\nName=Quorvel\n");
        QCOMPARE(values->value(u"Name"_s), u"Quorvel"_s);
        QCOMPARE(values->value(u"Name[vi]"_s), u"Quán"_s);
    }

    void escapesStandForTheirCharacters_data()
    {
        QTest::addColumn<QByteArray>("written");
        QTest::addColumn<QString>("value");
        QTest::newRow("blank") << QByteArray(R"(a\sb)") << u"a b"_s;
        QTest::newRow("line end") << QByteArray(R"(a\nb)") << u"a\nb"_s;
        QTest::newRow("tab") << QByteArray(R"(a\tb)") << u"a\tb"_s;
        QTest::newRow("return") << QByteArray(R"(a\rb)") << u"a\rb"_s;
        QTest::newRow("backslash") << QByteArray(R"(a\\nb)") << u"a\\nb"_s;
        QTest::newRow("no escape") << QByteArray(R"(a\xb)") << u"a\\xb"_s;
        QTest::newRow("at the end") << QByteArray(R"(a\)") << u"a\\"_s;
        QTest::newRow("equals") << QByteArray("a=b") << u"a=b"_s;
    }

    void escapesStandForTheirCharacters()
    {
        QFETCH(const QByteArray, written);
        QFETCH(const QString, value);
        const auto values = DesktopEntry::values("[Desktop Entry]\nKey=" + written + '\n');
        QCOMPARE(values->value(u"Key"_s), value);
    }

    void writesTheValuesInTheirOrder()
    {
        QCOMPARE(DesktopEntry::text({{u"Type"_s, u"Application"_s}, {u"Name"_s, u"Quán"_s}}),
                 QByteArray("[Desktop Entry]\nType=Application\nName=Quán\n"));
    }

    void whatIsWrittenReadsBack_data()
    {
        QTest::addColumn<QString>("value");
        QTest::newRow("plain") << u"/usr/bin/quorvel"_s;
        QTest::newRow("escapes") << u"a\\b\\nc\nd\te\rf"_s;
        QTest::newRow("accents") << u"/home/ana/quán cà phê"_s;
    }

    void whatIsWrittenReadsBack()
    {
        QFETCH(const QString, value);
        QCOMPARE(DesktopEntry::values(DesktopEntry::text({{u"Key"_s, value}}))->value(u"Key"_s),
                 value);
    }

    void anArgumentIsQuoted_data()
    {
        QTest::addColumn<QString>("argument");
        QTest::addColumn<QString>("expected");
        QTest::newRow("plain") << u"/usr/bin/quorvel"_s << u"\"/usr/bin/quorvel\""_s;
        QTest::newRow("blank") << u"/a b/quorvel"_s << u"\"/a b/quorvel\""_s;
        QTest::newRow("quote") << u"/a\"b"_s << u"\"/a\\\"b\""_s;
        QTest::newRow("apostrophe") << u"/a'b"_s << u"\"/a'b\""_s;
        QTest::newRow("dollar") << u"/a$b"_s << u"\"/a\\$b\""_s;
        QTest::newRow("backtick") << u"/a`b"_s << u"\"/a\\`b\""_s;
        QTest::newRow("backslash") << u"/a\\b"_s << u"\"/a\\\\b\""_s;
        QTest::newRow("percent") << u"/a%b%%f"_s << u"\"/a%%b%%%%f\""_s;
    }

    void anArgumentIsQuoted()
    {
        QFETCH(const QString, argument);
        QFETCH(const QString, expected);
        QCOMPARE(DesktopEntry::quoted(argument), expected);
        QCOMPARE(DesktopEntry::program(expected), argument);
    }

    void aBackslashInAPathIsWrittenFourfold()
    {
        QCOMPARE(DesktopEntry::text({{u"Exec"_s, DesktopEntry::quoted(u"/a\\b$c"_s)}}),
                 QByteArray("[Desktop Entry]\nExec=\"/a\\\\\\\\b\\\\$c\"\n"));
    }

    void theProgramIsTheFirstArgument_data()
    {
        QTest::addColumn<QString>("commandLine");
        QTest::addColumn<QString>("program");
        QTest::newRow("alone") << u"quorvel"_s << u"quorvel"_s;
        QTest::newRow("with arguments") << u"/usr/bin/quorvel --x %U"_s << u"/usr/bin/quorvel"_s;
        QTest::newRow("quoted, with arguments")
            << u"\"/a b/quorvel\" \"x y\""_s << u"/a b/quorvel"_s;
        QTest::newRow("blanks before") << u"  quorvel x"_s << u"quorvel"_s;
        QTest::newRow("percent") << u"/a%%b x"_s << u"/a%b"_s;
    }

    void theProgramIsTheFirstArgument()
    {
        QFETCH(const QString, commandLine);
        QFETCH(const QString, program);
        QCOMPARE(DesktopEntry::program(commandLine), program);
    }

    void aCommandLineWithoutAProgramHasNone_data()
    {
        QTest::addColumn<QString>("commandLine");
        QTest::newRow("empty") << QString();
        QTest::newRow("blank") << u"  "_s;
        QTest::newRow("empty quotes") << u"\"\" x"_s;
        QTest::newRow("open quote") << u"\"/usr/bin/quorvel"_s;
        QTest::newRow("open quote, escaped end") << u"\"/usr/bin/quorvel\\\""_s;
    }

    void aCommandLineWithoutAProgramHasNone()
    {
        QFETCH(const QString, commandLine);
        QVERIFY(!DesktopEntry::program(commandLine));
    }
};

QTEST_GUILESS_MAIN(DesktopEntryTest)
#include "DesktopEntryTest.moc"
