#include "Features/MenuBar/Panel/Window/PanelPlacement.h"

#include <algorithm>
#include <optional>

namespace quorvel {
namespace {

constexpr int gapPoints = 4;

const ScreenArea *screenAt(QPoint point, const QList<ScreenArea> &screens)
{
    const auto found = std::find_if(screens.begin(), screens.end(), [&](const ScreenArea &screen) {
        return screen.geometry.contains(point);
    });
    return found == screens.end() ? nullptr : &*found;
}

QPoint clampedInto(const QRect &area, QSize panel, QPoint corner)
{
    // A panel larger than the screen keeps its top left corner visible, where its header is.
    const int lastX = std::max(area.left(), area.left() + area.width() - panel.width());
    const int lastY = std::max(area.top(), area.top() + area.height() - panel.height());
    return {std::clamp(corner.x(), area.left(), lastX), std::clamp(corner.y(), area.top(), lastY)};
}

QPoint hungFrom(const QRect &anchor, QSize panel, const QRect &available)
{
    const int x = anchor.left() + (anchor.width() - panel.width()) / 2;
    const int below = anchor.top() + anchor.height() + gapPoints;
    const int above = anchor.top() - gapPoints - panel.height();
    const bool fitsBelow = below + panel.height() <= available.top() + available.height();
    return clampedInto(available, panel, {x, fitsBelow ? below : above});
}

struct Peg
{
    QRect anchor;
    QRect available;
};

std::optional<Peg> pegFor(const QRect &anchor, QPoint pointer, const QList<ScreenArea> &screens)
{
    for (const QRect &candidate : {anchor, QRect(pointer, QSize(1, 1))}) {
        const auto *screen = candidate.isEmpty() ? nullptr : screenAt(candidate.center(), screens);
        if (screen)
            return Peg{.anchor = candidate, .available = screen->available};
    }
    return std::nullopt;
}

} // namespace

QPoint PanelPlacement::topLeft(QSize panel, const QRect &anchor, QPoint pointer,
                               const QList<ScreenArea> &screens)
{
    if (const auto peg = pegFor(anchor, pointer, screens))
        return hungFrom(peg->anchor, panel, peg->available);
    if (screens.isEmpty())
        return {};
    const QRect first = screens.first().available;
    return clampedInto(first, panel, {first.left() + first.width() - panel.width(), first.top()});
}

QRect PanelPlacement::available(const QRect &anchor, QPoint pointer,
                                const QList<ScreenArea> &screens)
{
    if (const auto peg = pegFor(anchor, pointer, screens))
        return peg->available;
    return screens.isEmpty() ? QRect() : screens.first().available;
}

int PanelPlacement::leastHeight(const QList<ScreenArea> &screens)
{
    if (screens.isEmpty())
        return 0;
    const auto lower = [](const ScreenArea &one, const ScreenArea &other) {
        return one.available.height() < other.available.height();
    };
    return std::min_element(screens.begin(), screens.end(), lower)->available.height();
}

} // namespace quorvel
