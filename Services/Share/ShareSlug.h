#pragma once

#include "Models/CheckIn.h"
#include "Platform/Clock/Calendar.h"

/// Names a visit in words that suit a file's name.
namespace quorvel::ShareSlug {

/// The café's name in small letters and numbers joined by hyphens, and the visit's local day:
/// "may-trang-pho-co-2025-03-03". "checkin" stands for a café that is not known.
[[nodiscard]] QString of(const CheckIn &visit, const Calendar &calendar);

/// The same from a name and a day. A name without a letter or number leaves "-2025-03-03"; a long
/// one is cut between characters, so that the file's name stays one that every disk takes.
[[nodiscard]] QString of(const QString &name, QDate day);

/// "checkin-" and the slug, as a PNG file; at most 255 bytes.
[[nodiscard]] QString fileName(const QString &slug);

} // namespace quorvel::ShareSlug
