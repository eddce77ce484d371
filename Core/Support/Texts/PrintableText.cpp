#include "Core/Support/Texts/PrintableText.h"

#include <QJsonDocument>

namespace quorvel::PrintableText {

using namespace Qt::StringLiterals;

namespace {

/// Control characters start terminal commands. Bidirectional marks that stay in force reverse what
/// is printed after the text.
bool isOrder(QChar character)
{
    const char16_t code = character.unicode();
    const bool isControl = code < 0x20 || (code >= 0x7f && code <= 0x9f);
    const bool turnsOrder =
        (code >= 0x202a && code <= 0x202e) || (code >= 0x2066 && code <= 0x2069);
    return isControl || turnsOrder;
}

bool isLineBreak(QChar character)
{
    return character == u'\n' || character == QChar::LineSeparator ||
           character == QChar::ParagraphSeparator;
}

QString withBreaksAs(QChar lineBreak, QString text)
{
    text.replace("\r\n"_L1, "\n"_L1).replace(u'\r', u'\n');
    for (QChar &character : text) {
        if (isLineBreak(character))
            character = lineBreak;
        else if (character == u'\t')
            character = u' ';
        else if (isOrder(character))
            character = QChar::ReplacementCharacter;
    }
    return text;
}

bool isEscaped(QChar character)
{
    return isOrder(character) || isLineBreak(character);
}

/// Whether the JSON may contain a character to escape: in UTF-8 these characters begin with one of
/// these bytes. JSON contains no other control characters.
bool mayHaveEscaped(const QByteArray &json)
{
    return json.contains('\x7f') || json.contains('\xc2') || json.contains('\xe2');
}

QString escaped(QChar character)
{
    return u"\\u%1"_s.arg(int(character.unicode()), 4, 16, QChar(u'0'));
}

} // namespace

QString line(const QString &text)
{
    return withBreaksAs(u' ', text);
}

QString lines(const QString &text)
{
    return withBreaksAs(u'\n', text);
}

QByteArray json(const QJsonObject &object)
{
    // Only strings contain such characters, so each can be escaped in place.
    QByteArray utf8 = QJsonDocument(object).toJson(QJsonDocument::Compact);
    if (!mayHaveEscaped(utf8))
        return utf8;
    const QString plain = QString::fromUtf8(utf8);
    QString result;
    result.reserve(plain.size());
    for (const QChar character : plain) {
        if (isEscaped(character))
            result += escaped(character);
        else
            result += character;
    }
    return result.toUtf8();
}

} // namespace quorvel::PrintableText
