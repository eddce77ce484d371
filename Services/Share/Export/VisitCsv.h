#pragma once

#include "Models/CheckIn.h"

#include <QByteArray>

/// Visits as a table for spreadsheets (RFC 4180), one per line. An apostrophe keeps a spreadsheet
/// from calculating a text. Control characters, which the format does not allow, are replaced.
namespace quorvel::VisitCsv {

/// The names of the columns, with the line end. Each row has its line end too.
[[nodiscard]] QByteArray header();
[[nodiscard]] QByteArray row(const CheckIn &visit);

} // namespace quorvel::VisitCsv
