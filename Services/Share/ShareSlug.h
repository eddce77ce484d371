#pragma once

#include "Models/CheckIn.h"
#include "Platform/Clock/Calendar.h"

#include <QDate>

/// Makes a file name from a visit.
namespace quorvel::ShareSlug {

/// The café's name in lower-case letters and digits joined by hyphens, and the visit's local day:
/// "may-trang-pho-co-2025-03-03". "checkin" stands for an unknown café.
[[nodiscard]] QString of(const CheckIn &visit, const Calendar &calendar);

/// The same from a name and a day. A name without letters and digits gives "-2025-03-03". A long
/// name is cut between characters, so that the file name fits every file system.
[[nodiscard]] QString of(const QString &name, QDate day);

/// "checkin-" and the slug, as a PNG file; at most 255 bytes.
[[nodiscard]] QString fileName(const QString &slug);

} // namespace quorvel::ShareSlug
