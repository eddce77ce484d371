#include "Platform/Files/Xdg/XdgUserDirectories.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

namespace quorvel::XdgUserDirectories {

using namespace Qt::StringLiterals;

namespace {

/// The last matching line counts, as in a shell.
QString downloadsValue(const QString &lines)
{
    static const QRegularExpression assignment(u"^\\s*XDG_DOWNLOAD_DIR\\s*=\\s*\"(.*)\"\\s*$"_s,
                                               QRegularExpression::MultilineOption);
    QString value;
    for (const auto &match : assignment.globalMatch(lines))
        value = match.captured(1);
    return value;
}

QString unescaped(QString value)
{
    static const QRegularExpression escape(u"\\\\(.)"_s);
    return value.replace(escape, u"\\1"_s);
}

} // namespace

QStringList downloads(const XdgBaseDirectories &directories)
{
    QFile file(directories.configHome + u"/user-dirs.dirs"_s);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QString value = downloadsValue(QFile::decodeName(file.readAll()));
    const bool isBelowHome = value.startsWith(u"$HOME/"_s);
    if (!isBelowHome && !value.startsWith(u'/'))
        return {};
    const QString below = unescaped(isBelowHome ? value.sliced(u"$HOME"_s.size()) : value);
    const QString path = QDir::cleanPath(isBelowHome ? directories.home + below : below);
    return path == directories.home ? QStringList() : QStringList{path};
}

} // namespace quorvel::XdgUserDirectories
