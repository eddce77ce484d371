#include "Features/Terminal/CommandArguments.h"

#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

const CommandSyntax &syntax()
{
    static const CommandSyntax syntax{
        .name = u"brew"_s,
        .summary = u"Make coffee."_s,
        .options = {{u"--hot"_s, {}, u"Not cold."_s}, {u"--size"_s, u"N"_s, u"In spoons."_s}},
        .details = u"\nWith water.\n"_s};
    return syntax;
}

CommandArguments parse(const QStringList &arguments)
{
    return CommandArguments::parse(syntax(), arguments);
}

QString refusalOf(const QStringList &arguments)
{
    try {
        static_cast<void>(parse(arguments));
    } catch (const UsageError &error) {
        return error.errorDescription();
    }
    return {};
}

} // namespace

class CommandArgumentsTest final : public QObject
{
    Q_OBJECT

private slots:
    void withoutArgumentsNothingIsThere()
    {
        QVERIFY(!parse({}).has(u"--hot"_s));
        QCOMPARE(parse({}).value(u"--size"_s), std::nullopt);
    }

    void optionsAndTheirValuesAreRead()
    {
        const auto arguments = parse({u"--size"_s, u"2"_s, u"--hot"_s});
        QVERIFY(arguments.has(u"--hot"_s));
        QCOMPARE(arguments.value(u"--size"_s), u"2"_s);
    }

    void aValueMayBeAttached()
    {
        QCOMPARE(parse({u"--size=2"_s}).value(u"--size"_s), u"2"_s);
        QCOMPARE(parse({u"--size=a=b"_s}).value(u"--size"_s), u"a=b"_s);
        QCOMPARE(parse({u"--size="_s}).value(u"--size"_s), u""_s);
    }

    void aValueMayLookLikeAnOption()
    {
        const auto arguments = parse({u"--size"_s, u"--hot"_s});
        QCOMPARE(arguments.value(u"--size"_s), u"--hot"_s);
        QVERIFY(!arguments.has(u"--hot"_s));
    }

    void helpEndsTheReading()
    {
        for (const QString &help : {u"--help"_s, u"-h"_s})
            QVERIFY(parse({help, u"--cold"_s}).has(u"--help"_s));
        QCOMPARE(refusalOf({u"--cold"_s, u"--help"_s}), u"unknown option “--cold”"_s);
    }

    void whatIsNotUnderstoodIsRefused_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("reason");
        QTest::newRow("unknown") << QStringList{u"--cold"_s} << u"unknown option “--cold”"_s;
        QTest::newRow("a beginning") << QStringList{u"--ho"_s} << u"unknown option “--ho”"_s;
        QTest::newRow("in capitals") << QStringList{u"--HOT"_s} << u"unknown option “--HOT”"_s;
        QTest::newRow("two dashes") << QStringList{u"--"_s} << u"unknown option “--”"_s;
        QTest::newRow("a word") << QStringList{u"milk"_s} << u"unexpected argument “milk”"_s;
        QTest::newRow("a dash") << QStringList{u"-"_s} << u"unexpected argument “-”"_s;
        QTest::newRow("nothing") << QStringList{QString()} << u"unexpected argument “”"_s;
        QTest::newRow("no value") << QStringList{u"--size"_s} << u"option “--size” needs a value"_s;
        QTest::newRow("a value too many")
            << QStringList{u"--hot=1"_s} << u"option “--hot” takes no value"_s;
        QTest::newRow("help with a value")
            << QStringList{u"--help=hot"_s} << u"option “--help” takes no value"_s;
        QTest::newRow("twice") << QStringList{u"--hot"_s, u"--hot"_s}
                               << u"option “--hot” is given twice"_s;
    }

    void whatIsNotUnderstoodIsRefused()
    {
        QFETCH(const QStringList, arguments);
        QFETCH(const QString, reason);
        QCOMPARE(refusalOf(arguments), reason);
    }

    void theHelpNamesEveryOption()
    {
        QCOMPARE(syntax().help(), u"Usage: quorvel brew [option...]\n"
                                  "\n"
                                  "Make coffee.\n"
                                  "\n"
                                  "With water.\n"
                                  "\n"
                                  "Options:\n"
                                  "  --hot                   Not cold.\n"
                                  "  --size N                In spoons.\n"
                                  "  --help                  Show this text.\n"_s);
    }
};

} // namespace quorvel::tests

QTEST_APPLESS_MAIN(quorvel::tests::CommandArgumentsTest)
#include "CommandArgumentsTest.moc"
