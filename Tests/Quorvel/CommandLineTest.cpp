#include "Quorvel/CommandLine.h"

#include <QApplication>
#include <QTest>

#include <list>
#include <vector>

using namespace quorvel;
using namespace Qt::StringLiterals;

namespace {

const CommandLine run{};

/// The number of arguments that an application object leaves.
int leftOver(const QStringList &arguments)
{
    std::list<QByteArray> storage{"quorvel"};
    for (const QString &argument : arguments)
        storage.push_back(argument.toLocal8Bit());
    std::vector<char *> pointers;
    for (QByteArray &argument : storage)
        pointers.push_back(argument.data());
    int count = int(pointers.size());
    pointers.push_back(nullptr);
    const QApplication application(count, pointers.data());
    return count - 1;
}

} // namespace

class CommandLineTest final : public QObject
{
    Q_OBJECT

private slots:
    void withoutArgumentsTheProgramRuns() { QCOMPARE(CommandLine::parse({}), run); }

    void anOptionSaysWhatIsOpened_data()
    {
        QTest::addColumn<QString>("option");
        QTest::addColumn<CommandLine::Opening>("opening");
        QTest::newRow("panel") << u"--panel"_s << CommandLine::Opening::Panel;
        QTest::newRow("history") << u"--history"_s << CommandLine::Opening::History;
        QTest::newRow("probe") << u"--probe"_s << CommandLine::Opening::Diagnostics;
        QTest::newRow("background") << u"--background"_s << CommandLine::Opening::Nothing;
    }

    void anOptionSaysWhatIsOpened()
    {
        QFETCH(const QString, option);
        QFETCH(const CommandLine::Opening, opening);
        const CommandLine start{.opening = opening};
        QCOMPARE(CommandLine::parse({option}), start);
        QCOMPARE(CommandLine::parse({u"-reverse"_s, option, option}), start);
        QCOMPARE(CommandLine::parse({option.sliced(1)}).exitStatus, 2);
        QCOMPARE(CommandLine::parse({option + u"=1"_s}).exitStatus, 2);
        QCOMPARE(CommandLine::parse({option, u"--foo"_s}).exitStatus, 2);
        QVERIFY(CommandLine::parse({u"--help"_s}).output.contains(u"\n  "_s + option + u' '));
    }

    void theLastOfThemCounts()
    {
        const auto line = CommandLine::parse({u"--probe"_s, u"--background"_s, u"--history"_s});
        QCOMPARE(line, CommandLine{.opening = CommandLine::Opening::History});
    }

    void aCommandIsLeftToItsModule_data()
    {
        QTest::addColumn<QStringList>("arguments");
        for (const QString &name : {u"locate"_s, u"history"_s, u"export"_s, u"check-in"_s})
            QTest::newRow(qPrintable(name)) << QStringList{name};
        QTest::newRow("with arguments")
            << QStringList{u"locate"_s, u"--json"_s, u"--foo"_s, u"--help"_s, u"bar"_s};
    }

    void aCommandIsLeftToItsModule()
    {
        QFETCH(const QStringList, arguments);
        QCOMPARE(CommandLine::parse(arguments), (CommandLine{.command = arguments}));
    }

    void theHelpNamesEveryCommand()
    {
        const QString help = CommandLine::parse({u"--help"_s}).output;
        for (const QString &name : {u"locate"_s, u"history"_s, u"export"_s, u"check-in"_s})
            QVERIFY(help.contains(u"\n  "_s + name + u' '));
    }

    void theVersionIsThatOfTheProject_data()
    {
        QTest::addColumn<QString>("argument");
        QTest::newRow("long") << u"--version"_s;
        QTest::newRow("short") << u"-v"_s;
    }

    void theVersionIsThatOfTheProject()
    {
        QFETCH(const QString, argument);
        QCOMPARE(CommandLine::parse({argument}),
                 (CommandLine{.output = u"Quorvel " PROJECT_VERSION "\n"_s, .exitStatus = 0}));
    }

    void theHelpNamesEveryOption_data()
    {
        QTest::addColumn<QString>("argument");
        QTest::newRow("long") << u"--help"_s;
        QTest::newRow("short") << u"-h"_s;
    }

    void theHelpNamesEveryOption()
    {
        QFETCH(const QString, argument);
        const CommandLine line = CommandLine::parse({argument});
        QCOMPARE(line.exitStatus, 0);
        QCOMPARE(line.errors, QString());
        QVERIFY(line.output.startsWith(u"Usage: quorvel [option]\n"_s));
        for (const QString &option : {u"-h, --help "_s, u"-v, --version "_s})
            QVERIFY(line.output.contains(option));
        for (const QString &text : line.output.split(u'\n'))
            QVERIFY2(text.size() <= 80, qPrintable(text));
    }

    void whatIsNotUnderstoodIsRefused_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("line");
        QTest::newRow("unknown") << QStringList{u"--foo"_s} << u"quorvel: unknown option “--foo”"_s;
        QTest::newRow("unknown, short")
            << QStringList{u"-x"_s} << u"quorvel: unknown option “-x”"_s;
        QTest::newRow("short options do not add up")
            << QStringList{u"-hv"_s} << u"quorvel: unknown option “-hv”"_s;
        QTest::newRow("two dashes alone")
            << QStringList{u"--"_s} << u"quorvel: unknown option “--”"_s;
        QTest::newRow("an option in capitals")
            << QStringList{u"--Help"_s} << u"quorvel: unknown option “--Help”"_s;
        QTest::newRow("an option with a value it does not take")
            << QStringList{u"--version=1"_s} << u"quorvel: unknown option “--version=1”"_s;
        QTest::newRow("the beginning of an option")
            << QStringList{u"--vers"_s} << u"quorvel: unknown option “--vers”"_s;
        QTest::newRow("argument") << QStringList{u"café.txt"_s}
                                  << u"quorvel: unexpected argument “café.txt”"_s;
        QTest::newRow("a command in capitals")
            << QStringList{u"Locate"_s} << u"quorvel: unexpected argument “Locate”"_s;
        QTest::newRow("a command that is not the first")
            << QStringList{u"-reverse"_s, u"locate"_s}
            << u"quorvel: unexpected argument “locate”"_s;
        QTest::newRow("one dash") << QStringList{u"-"_s} << u"quorvel: unexpected argument “-”"_s;
        QTest::newRow("empty") << QStringList{QString()} << u"quorvel: unexpected argument “”"_s;
        QTest::newRow("placeholder")
            << QStringList{u"%1"_s} << u"quorvel: unexpected argument “%1”"_s;
        QTest::newRow("after an option of the toolkit")
            << QStringList{u"-style"_s, u"fusion"_s, u"--foo"_s}
            << u"quorvel: unknown option “--foo”"_s;
        QTest::newRow("after a flag of the toolkit") << QStringList{u"-reverse"_s, u"fusion"_s}
                                                     << u"quorvel: unexpected argument “fusion”"_s;
        QTest::newRow("an attached value that the toolkit does not take")
            << QStringList{u"-platform=xcb"_s} << u"quorvel: unknown option “-platform=xcb”"_s;
        QTest::newRow("more than an option of the toolkit")
            << QStringList{u"-styles"_s, u"fusion"_s} << u"quorvel: unknown option “-styles”"_s;
        QTest::newRow("three dashes")
            << QStringList{u"---style=fusion"_s} << u"quorvel: unknown option “---style=fusion”"_s;
        QTest::newRow("a missing value")
            << QStringList{u"-platform"_s} << u"quorvel: option “-platform” needs a value"_s;
        QTest::newRow("a missing value of an option that may have it attached")
            << QStringList{u"--style"_s} << u"quorvel: option “--style” needs a value"_s;
    }

    void whatIsNotUnderstoodIsRefused()
    {
        QFETCH(const QStringList, arguments);
        QFETCH(const QString, line);
        QCOMPARE(CommandLine::parse(arguments),
                 (CommandLine{.errors = line + u"\nTry “quorvel --help”.\n"_s, .exitStatus = 2}));
    }

    void theFirstOptionDecides()
    {
        QVERIFY(CommandLine::parse({u"--version"_s, u"--foo"_s}).output.startsWith(u"Quorvel "_s));
        QCOMPARE(CommandLine::parse({u"--foo"_s, u"--version"_s}).exitStatus, 2);
        QVERIFY(CommandLine::parse({u"-reverse"_s, u"-h"_s}).output.startsWith(u"Usage"_s));
    }

    void aValueOfTheToolkitIsNoOptionOfOurs()
    {
        QCOMPARE(CommandLine::parse({u"-qwindowtitle"_s, u"--version"_s}), run);
    }

    void optionsOfTheToolkitPassAndAreTakenByIt_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("platform") << QStringList{u"-platform"_s, u"offscreen"_s};
        QTest::newRow("platform, two dashes") << QStringList{u"--platform"_s, u"offscreen"_s};
        QTest::newRow("platformpluginpath") << QStringList{u"-platformpluginpath"_s, u"/nowhere"_s};
        QTest::newRow("platformtheme") << QStringList{u"-platformtheme"_s, u"none"_s};
        QTest::newRow("plugin") << QStringList{u"-plugin"_s, u"none"_s};
        QTest::newRow("qwindowgeometry") << QStringList{u"-qwindowgeometry"_s, u"100x100"_s};
        QTest::newRow("qwindowicon") << QStringList{u"-qwindowicon"_s, u"none"_s};
        QTest::newRow("qwindowtitle") << QStringList{u"-qwindowtitle"_s, u"Title"_s};
        QTest::newRow("session") << QStringList{u"-session"_s, u"1_2"_s};
        QTest::newRow("style") << QStringList{u"-style"_s, u"fusion"_s};
        QTest::newRow("style, attached") << QStringList{u"-style=fusion"_s};
        QTest::newRow("style, attached, two dashes") << QStringList{u"--style=fusion"_s};
        QTest::newRow("stylesheet") << QStringList{u"-stylesheet"_s, u"/nowhere.qss"_s};
        QTest::newRow("stylesheet, attached") << QStringList{u"-stylesheet=/nowhere.qss"_s};
        QTest::newRow("reverse") << QStringList{u"-reverse"_s};
        QTest::newRow("widgetcount") << QStringList{u"-widgetcount"_s};
        QTest::newRow("several") << QStringList{u"-reverse"_s, u"-style"_s, u"fusion"_s,
                                                u"-session"_s, u"1_2"_s};
    }

    void optionsOfTheToolkitPassAndAreTakenByIt()
    {
        QFETCH(const QStringList, arguments);
        QCOMPARE(CommandLine::parse(arguments), run);
        QCOMPARE(leftOver(arguments), 0);
    }

    void formsThatTheToolkitLeavesAreRefused_data()
    {
        QTest::addColumn<QString>("argument");
        QTest::newRow("attached value") << u"-platform=offscreen"_s;
        QTest::newRow("longer name") << u"-styles"_s;
        QTest::newRow("three dashes") << u"---style=fusion"_s;
        QTest::newRow("flag with a value") << u"-reverse=1"_s;
        QTest::newRow("no option at all") << u"fusion"_s;
    }

    void formsThatTheToolkitLeavesAreRefused()
    {
        QFETCH(const QString, argument);
        QCOMPARE(leftOver({argument}), 1);
        QCOMPARE(CommandLine::parse({argument}).exitStatus, 2);
    }
};

QTEST_APPLESS_MAIN(CommandLineTest)
#include "CommandLineTest.moc"
