#include "Platform/Files/Xdg/XdgUserDirectories.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

class XdgUserDirectoriesTest final : public QObject
{
    Q_OBJECT

private slots:
    void downloadsAreWhatTheFileNames_data()
    {
        QTest::addColumn<QByteArray>("lines");
        QTest::addColumn<QStringList>("folders");
        const auto row = [](const char *name, const QByteArray &lines, const QStringList &folders) {
            QTest::newRow(name) << lines << folders;
        };
        row("below home", "XDG_DOWNLOAD_DIR=\"$HOME/Downloads\"\n", {u"/home/ana/Downloads"_s});
        row("deeper", "XDG_DOWNLOAD_DIR=\"$HOME/a/b/\"\n", {u"/home/ana/a/b"_s});
        row("elsewhere", "XDG_DOWNLOAD_DIR=\"/data/in coming\"\n", {u"/data/in coming"_s});
        row("in the user's language", "XDG_DOWNLOAD_DIR=\"$HOME/Tải về\"\n",
            {u"/home/ana/Tải về"_s});
        row("escaped", "XDG_DOWNLOAD_DIR=\"$HOME/a\\\"b\\\\c\\$d\"\n", {u"/home/ana/a\"b\\c$d"_s});
        row("among others",
            "# written by the desktop\nXDG_DESKTOP_DIR=\"$HOME/Desktop\"\n"
            "  XDG_DOWNLOAD_DIR = \"$HOME/In\"  \nXDG_MUSIC_DIR=\"$HOME/Music\"\n",
            {u"/home/ana/In"_s});
        row("the last counts", "XDG_DOWNLOAD_DIR=\"$HOME/a\"\nXDG_DOWNLOAD_DIR=\"$HOME/b\"\n",
            {u"/home/ana/b"_s});
        row("a comment", "#XDG_DOWNLOAD_DIR=\"$HOME/Downloads\"\n", {});
        row("home itself", "XDG_DOWNLOAD_DIR=\"$HOME/\"\n", {});
        row("home itself, without a slash", "XDG_DOWNLOAD_DIR=\"$HOME\"\n", {});
        row("home itself, in full", "XDG_DOWNLOAD_DIR=\"/home/ana/\"\n", {});
        row("relative", "XDG_DOWNLOAD_DIR=\"Downloads\"\n", {});
        row("another variable", "XDG_DOWNLOAD_DIR=\"$DATA/Downloads\"\n", {});
        row("without quotes", "XDG_DOWNLOAD_DIR=$HOME/Downloads\n", {});
        row("empty value", "XDG_DOWNLOAD_DIR=\"\"\n", {});
        row("empty file", "", {});
        row("no text", QByteArray("\xFF\x00\n\"", 4), {});
    }

    void downloadsAreWhatTheFileNames()
    {
        QFETCH(const QByteArray, lines);
        QFETCH(const QStringList, folders);
        const QTemporaryDir config;
        QFile file(config.filePath(u"user-dirs.dirs"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(lines);
        file.close();
        QCOMPARE(
            XdgUserDirectories::downloads({.home = u"/home/ana"_s, .configHome = config.path()}),
            folders);
    }

    void withoutTheFileThereAreNone()
    {
        const QTemporaryDir config;
        QCOMPARE(
            XdgUserDirectories::downloads({.home = u"/home/ana"_s, .configHome = config.path()}),
            QStringList());
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::XdgUserDirectoriesTest)
#include "XdgUserDirectoriesTest.moc"
