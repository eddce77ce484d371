#include "Core/DesignSystem/ThemedItem.h"

#include "Core/DesignSystem/Theme.h"

namespace quorvel {

ThemedItem::ThemedItem(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
    connect(Theme::shared().color(), &ThemeColor::changed, this, [this] { update(); });
}

} // namespace quorvel
