#pragma once

#include "Models/CheckIn.h"

/// Visits as a table by RFC 4180, one a line, for spreadsheets. A text that a spreadsheet would
/// calculate is kept a text by an apostrophe before it; control characters, which the format does
/// not know, are replaced.
namespace quorvel::VisitCsv {

/// The names of the columns. It ends its line, as each row does.
[[nodiscard]] QByteArray header();
[[nodiscard]] QByteArray row(const CheckIn &visit);

} // namespace quorvel::VisitCsv
