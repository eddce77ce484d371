#include "Platform/LoginItem/DesktopEntry.h"

#include <QStringView>

#include <utility>

namespace quorvel::DesktopEntry {

using namespace Qt::StringLiterals;

namespace {

const QString mainGroup = u"[Desktop Entry]"_s;

QString escaped(QString value)
{
    return value.replace(u'\\', u"\\\\"_s)
        .replace(u'\n', u"\\n"_s)
        .replace(u'\t', u"\\t"_s)
        .replace(u'\r', u"\\r"_s);
}

/// The meaning of a backslash and the next character. Both characters stay if they have none.
QString meaning(QChar character)
{
    switch (character.unicode()) {
    case u's':
        return u" "_s;
    case u'n':
        return u"\n"_s;
    case u't':
        return u"\t"_s;
    case u'r':
        return u"\r"_s;
    case u'\\':
        return u"\\"_s;
    default:
        return u'\\' + QString(character);
    }
}

QString unescaped(QStringView value)
{
    QString result;
    for (qsizetype i = 0; i < value.size(); ++i) {
        const bool isEscape = value[i] == u'\\' && i + 1 < value.size();
        result += isEscape ? meaning(value[++i]) : QString(value[i]);
    }
    return result;
}

/// Reads the text up to the closing quote. The opening quote is already removed.
std::optional<QString> quotedText(QStringView text)
{
    QString result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'"')
            return result;
        if (text[i] == u'\\' && i + 1 < text.size())
            ++i;
        result += text[i];
    }
    return std::nullopt;
}

} // namespace

std::optional<Values> values(const QByteArray &text)
{
    std::optional<Values> result;
    bool isInMainGroup = false;
    const QString content = QString::fromUtf8(text);
    for (const QStringView rawLine : QStringView(content).split(u'\n')) {
        const QStringView line = rawLine.trimmed();
        if (line.startsWith(u'[')) {
            isInMainGroup = line == mainGroup;
            if (isInMainGroup && !result)
                result.emplace();
            continue;
        }
        const qsizetype equals = line.indexOf(u'=');
        if (isInMainGroup && equals > 0 && !line.startsWith(u'#')) {
            result->insert(line.first(equals).trimmed().toString(),
                           unescaped(line.sliced(equals + 1).trimmed()));
        }
    }
    return result;
}

QByteArray text(const QList<std::pair<QString, QString>> &values)
{
    QString result = mainGroup + u'\n';
    for (const auto &[key, value] : values)
        result += key + u'=' + escaped(value) + u'\n';
    return result.toUtf8();
}

QString quoted(const QString &argument)
{
    QString result;
    for (const QChar character : argument) {
        if (u"\"`$\\"_s.contains(character))
            result += u'\\';
        result += character;
    }
    return u'"' + result.replace(u'%', u"%%"_s) + u'"';
}

std::optional<QString> program(const QString &commandLine)
{
    const QString line = commandLine.trimmed();
    auto result = line.startsWith(u'"') ? quotedText(QStringView(line).sliced(1))
                                        : std::optional(line.section(u' ', 0, 0));
    if (!result || result->isEmpty())
        return std::nullopt;
    return result->replace(u"%%"_s, u"%"_s);
}

} // namespace quorvel::DesktopEntry
