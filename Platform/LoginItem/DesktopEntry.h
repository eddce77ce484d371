#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <optional>
#include <utility>

/// Reads and writes the notation of desktop entry files, for our own entry.
namespace quorvel::DesktopEntry {

using Values = QHash<QString, QString>;

/// Returns the unescaped values of the main group. Of equal keys the last one counts. Other groups,
/// comments, blank lines, CRLF line ends and meaningless lines are skipped. Nothing if there is no
/// main group.
[[nodiscard]] std::optional<Values> values(const QByteArray &text);

/// The text of a main group with these values in this order.
[[nodiscard]] QByteArray text(const QList<std::pair<QString, QString>> &values);

/// Writes one argument of a command line under the key Exec: quoted, with `%` doubled.
[[nodiscard]] QString quoted(const QString &argument);

/// The program of such a command line, which is its first argument. Nothing if the line is empty or
/// its quotes do not match.
[[nodiscard]] std::optional<QString> program(const QString &commandLine);

} // namespace quorvel::DesktopEntry
