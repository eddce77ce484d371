#pragma once

#include "Core/Persistence/CheckInPhotoStore.h"
#include "Core/Support/Tasks/Task.h"

#include <QImage>
#include <QSize>

#include <optional>

/// The photo that a visit's card shows on its banner.
namespace quorvel::VisitPhoto {

/// Reads the visit's photo on another thread: upright, in the colours of the screen, and no larger
/// than it takes to cover the area in pixels. Nothing without a name, or when there is no photo of
/// that name in the store's folder itself: a path or a link that leads elsewhere is none, nor is
/// what no camera or editor would have left there.
[[nodiscard]] Task<std::optional<QImage>> load(const CheckInPhotoStore &store,
                                               const std::optional<QString> &fileName, QSize area);

} // namespace quorvel::VisitPhoto
