#include "Platform/Files/Xdg/XdgBaseDirectories.h"

#include <QFile>
#include <QTest>

#include <initializer_list>
#include <pwd.h>
#include <unistd.h>
#include <utility>

using namespace quorvel;
using namespace Qt::StringLiterals;

namespace {

QProcessEnvironment environment(std::initializer_list<std::pair<QString, QString>> variables)
{
    QProcessEnvironment result;
    for (const auto &[name, value] : variables)
        result.insert(name, value);
    return result;
}

} // namespace

class XdgBaseDirectoriesTest final : public QObject
{
    Q_OBJECT

private slots:
    void withoutVariablesTheFoldersLieBelowHome()
    {
        const auto directories = XdgBaseDirectories::of(environment({{u"HOME"_s, u"/home/ana"_s}}));
        QCOMPARE(directories.home, u"/home/ana"_s);
        QCOMPARE(directories.dataHome, u"/home/ana/.local/share"_s);
        QCOMPARE(directories.configHome, u"/home/ana/.config"_s);
        QCOMPARE(directories.configDirs, QStringList{u"/etc/xdg"_s});
    }

    void absoluteVariablesAreTakenAndCleaned()
    {
        const auto directories =
            XdgBaseDirectories::of(environment({{u"HOME"_s, u"/home//ana/"_s},
                                                {u"XDG_DATA_HOME"_s, u"/data//ana/"_s},
                                                {u"XDG_CONFIG_HOME"_s, u"/config/ana"_s},
                                                {u"XDG_CONFIG_DIRS"_s, u"/first/:/second"_s}}));
        QCOMPARE(directories.home, u"/home/ana"_s);
        QCOMPARE(directories.dataHome, u"/data/ana"_s);
        QCOMPARE(directories.configHome, u"/config/ana"_s);
        QCOMPARE(directories.configDirs, (QStringList{u"/first"_s, u"/second"_s}));
    }

    void relativeAndEmptyVariablesCountAsUnset_data()
    {
        QTest::addColumn<QString>("value");
        QTest::newRow("empty") << QString();
        QTest::newRow("relative") << u"share"_s;
        QTest::newRow("dot") << u"./share"_s;
        QTest::newRow("tilde") << u"~/share"_s;
    }

    void relativeAndEmptyVariablesCountAsUnset()
    {
        QFETCH(const QString, value);
        const auto directories = XdgBaseDirectories::of(environment({
            {u"HOME"_s, u"/home/ana"_s},
            {u"XDG_DATA_HOME"_s, value},
            {u"XDG_CONFIG_HOME"_s, value},
            {u"XDG_CONFIG_DIRS"_s, value},
        }));
        QCOMPARE(directories, XdgBaseDirectories::of(environment({{u"HOME"_s, u"/home/ana"_s}})));
    }

    void relativeEntriesOfAListAreDropped()
    {
        const auto directories = XdgBaseDirectories::of(
            environment({{u"XDG_CONFIG_DIRS"_s, u"relative:/kept::also/relative"_s}}));
        QCOMPARE(directories.configDirs, QStringList{u"/kept"_s});
    }

    void withoutAnAbsoluteHomeTheAccountsOwnIsUsed_data()
    {
        QTest::addColumn<QProcessEnvironment>("variables");
        QTest::newRow("unset") << QProcessEnvironment();
        QTest::newRow("empty") << environment({{u"HOME"_s, QString()}});
        QTest::newRow("relative") << environment({{u"HOME"_s, u"ana"_s}});
    }

    void withoutAnAbsoluteHomeTheAccountsOwnIsUsed()
    {
        const passwd *const account = getpwuid(getuid());
        if (!account)
            QSKIP("this user has no account");
        QFETCH(const QProcessEnvironment, variables);
        QCOMPARE(XdgBaseDirectories::of(variables).dataHome,
                 QFile::decodeName(account->pw_dir) + u"/.local/share"_s);
    }
};

QTEST_GUILESS_MAIN(XdgBaseDirectoriesTest)
#include "XdgBaseDirectoriesTest.moc"
