#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>

/// Makes texts from the web, the radio and the user safe to print on a terminal. Characters that a
/// terminal would obey become the replacement character, unless said otherwise.
namespace quorvel::PrintableText {

/// The text in one line: line breaks become blanks.
[[nodiscard]] QString line(const QString &text);

/// The text with its line breaks, all as line feeds.
[[nodiscard]] QString lines(const QString &text);

/// The object in one line of UTF-8. Nothing is lost: control characters are escaped.
[[nodiscard]] QByteArray json(const QJsonObject &object);

} // namespace quorvel::PrintableText
