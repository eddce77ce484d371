#include "Core/DesignSystem/Theme/ThemedItem.h"

#include "Core/DesignSystem/Theme/Theme.h"

#include <QQuickItem>

namespace quorvel {

ThemedItem::ThemedItem(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
    connect(Theme::shared().color(), &ThemeColor::changed, this, [this] { update(); });
}

} // namespace quorvel
