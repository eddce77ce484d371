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
    /// What the desktop's bars leave of it.
    QRect available;
};

/// Where the panel hangs. Pure; serves MenuBarPanel.
namespace PanelPlacement {

/// The panel's top left corner: centred below the anchor, above it where there is no room below,
/// wholly inside what is free of the anchor's screen. Without an anchor the pointer is taken for
/// one; where that is on no screen, the top right corner of the first screen.
[[nodiscard]] QPoint topLeft(QSize panel, const QRect &anchor, QPoint pointer,
                             const QList<ScreenArea> &screens);

/// What is free of the screen that the panel hangs on; empty without a screen.
[[nodiscard]] QRect available(const QRect &anchor, QPoint pointer,
                              const QList<ScreenArea> &screens);

/// The height that is free on whichever screen, for a panel that the desktop puts on one of its own
/// choice; zero without a screen.
[[nodiscard]] int leastHeight(const QList<ScreenArea> &screens);

} // namespace PanelPlacement
} // namespace quorvel
