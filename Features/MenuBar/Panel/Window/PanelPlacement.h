#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

namespace quorvel {

/// A screen in the desktop's logical coordinates.
struct ScreenArea
{
    QRect geometry;
    /// The area without the desktop's bars.
    QRect available;
};

/// Computes the panel's place. Pure functions for MenuBarPanel.
namespace PanelPlacement {

/// The panel's top left corner: centred below the anchor, or above it if there is no room below,
/// and fully inside the free area of the anchor's screen. Without an anchor, the pointer is the
/// anchor. If the pointer is on no screen, the top right corner of the first screen.
[[nodiscard]] QPoint topLeft(QSize panel, const QRect &anchor, QPoint pointer,
                             const QList<ScreenArea> &screens);

/// The free area of the panel's screen; empty without a screen.
[[nodiscard]] QRect available(const QRect &anchor, QPoint pointer,
                              const QList<ScreenArea> &screens);

/// The free height that every screen has, for a desktop that chooses the panel's screen itself;
/// zero without a screen.
[[nodiscard]] int leastHeight(const QList<ScreenArea> &screens);

} // namespace PanelPlacement
} // namespace quorvel
