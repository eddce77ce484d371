#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <optional>

/// The notation of desktop entry files, for what writes one of ours and reads what became of it.
namespace quorvel::DesktopEntry {

using Values = QHash<QString, QString>;

/// The unescaped values of the main group, the last of equal keys winning. Other groups, comments,
/// blank lines, CRLF line ends and lines of no meaning are passed over. Nothing when there is no
/// main group.
[[nodiscard]] std::optional<Values> values(const QByteArray &text);

/// The text of a main group with these values in this order.
[[nodiscard]] QByteArray text(const QList<std::pair<QString, QString>> &values);

/// One argument in the notation of a command line under the key Exec: quoted, and with `%` doubled.
[[nodiscard]] QString quoted(const QString &argument);

/// The program of such a command line, its first argument. Nothing when it is empty or its quotes
/// do not match.
[[nodiscard]] std::optional<QString> program(const QString &commandLine);

} // namespace quorvel::DesktopEntry
