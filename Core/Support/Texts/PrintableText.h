#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>

/// Texts of the web, the radio and the user for the eyes of a terminal, which takes some characters
/// for orders. Each of those becomes the replacement character, where nothing else is said.
namespace quorvel::PrintableText {

/// In one line: what breaks lines becomes a blank.
[[nodiscard]] QString line(const QString &text);

/// With its line breaks, whatever made them, as line feeds.
[[nodiscard]] QString lines(const QString &text);

/// An object in one line of UTF-8. Nothing is lost: the orders are escaped.
[[nodiscard]] QByteArray json(const QJsonObject &object);

} // namespace quorvel::PrintableText
