#include "Services/Share/ShareSlug.h"

#include <QDate>
#include <QTextBoundaryFinder>

#include <array>
#include <utility>

namespace quorvel::ShareSlug {

namespace {

using namespace Qt::StringLiterals;

constexpr qsizetype longestFileNameBytes = 255;
constexpr auto filePrefix = "checkin-"_L1;
constexpr auto fileSuffix = ".png"_L1;
constexpr char32_t zeroWidthNonJoiner = 0x200C;
constexpr char32_t zeroWidthJoiner = 0x200D;

/// Letters whose stroke or missing dot is not a separate mark, so decomposition cannot remove it.
constexpr std::array<std::pair<char32_t, char32_t>, 6> plainLetters{
    {{U'đ', U'd'}, {U'ħ', U'h'}, {U'ı', U'i'}, {U'ł', U'l'}, {U'ø', U'o'}, {U'ŧ', U't'}}};

char32_t plain(char32_t character)
{
    for (const auto &[accented, letter] : plainLetters)
        if (accented == character)
            return letter;
    return character;
}

/// Whether the character is a mark on the character before it.
bool isMark(char32_t character)
{
    return QChar::isMark(character) || character == zeroWidthJoiner ||
           character == zeroWidthNonJoiner;
}

/// Marks are accents in these scripts. In other scripts they are part of the spelling.
bool hasAccents(char32_t letter)
{
    const QChar::Script script = QChar::script(letter);
    return script == QChar::Script_Latin || script == QChar::Script_Greek;
}

QString hyphenated(const QString &name)
{
    QString text;
    bool keepsMarks = false;
    const QString letters = name.toLower().normalized(QString::NormalizationForm_D);
    for (const char32_t character : letters.toUcs4()) {
        if (isMark(character) && !keepsMarks)
            continue;
        const bool isWord = isMark(character) || QChar::isLetterOrNumber(character);
        if (isWord)
            text += QChar::fromUcs4(plain(character));
        else if (!text.endsWith(u'-'))
            text += u'-';
        if (!isMark(character))
            keepsMarks = QChar::isLetter(character) && !hasAccents(character);
    }
    return text.normalized(QString::NormalizationForm_C);
}

QString trimmed(const QString &text)
{
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (begin < end && text[begin] == u'-')
        ++begin;
    while (begin < end && text[end - 1] == u'-')
        --end;
    return text.mid(begin, end - begin);
}

QString cut(const QString &text, qsizetype longestBytes)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype fitting = 0;
    for (qsizetype end = finder.toNextBoundary(); end > 0; end = finder.toNextBoundary()) {
        if (QStringView(text).first(end).toUtf8().size() > longestBytes)
            break;
        fitting = end;
    }
    return text.first(fitting);
}

} // namespace

QString of(const CheckIn &visit, const Calendar &calendar)
{
    const QString name = visit.cafe() ? visit.cafe()->name() : u"checkin"_s;
    return of(name, calendar.localTime(visit.date()).date());
}

QString of(const QString &name, QDate day)
{
    const QString end = u'-' + day.toString(Qt::ISODate);
    const qsizetype longestBytes = longestFileNameBytes - fileName(end).toUtf8().size();
    return trimmed(cut(trimmed(hyphenated(name)), longestBytes)) + end;
}

QString fileName(const QString &slug)
{
    return filePrefix + slug + fileSuffix;
}

} // namespace quorvel::ShareSlug
