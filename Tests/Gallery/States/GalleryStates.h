#pragma once

#include "Tests/Gallery/GalleryStage.h"

#include <functional>

namespace quorvel::tests {

/// One view in one state, such as "LocatedView/checked-in".
struct GalleryState
{
    QString name;
    std::function<void(GalleryStage &)> make;
};

/// The program's views in every state that looks different.
namespace GalleryStates {

[[nodiscard]] QList<GalleryState> all();

[[nodiscard]] QList<GalleryState> ofPanel();
[[nodiscard]] QList<GalleryState> ofLocatedView();
[[nodiscard]] QList<GalleryState> ofPicker();
[[nodiscard]] QList<GalleryState> ofWifi();
[[nodiscard]] QList<GalleryState> ofHistory();
[[nodiscard]] QList<GalleryState> ofProbe();

} // namespace GalleryStates
} // namespace quorvel::tests
