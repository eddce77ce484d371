#pragma once

#include "Core/Persistence/CheckInPhotoStore.h"
#include "Core/Support/Tasks/Task.h"

#include <QImage>
#include <QSize>

#include <optional>

/// Reads the photo of a visit's banner.
namespace quorvel::VisitPhoto {

/// Reads the visit's photo on another thread: upright, in the colours of the screen, and just large
/// enough to cover the area in pixels. Nothing without a name, or if the store's folder has no
/// photo of that name. A path, a link to elsewhere, or a file that no camera or editor writes does
/// not count.
[[nodiscard]] Task<std::optional<QImage>> load(const CheckInPhotoStore &store,
                                               const std::optional<QString> &fileName, QSize area);

} // namespace quorvel::VisitPhoto
