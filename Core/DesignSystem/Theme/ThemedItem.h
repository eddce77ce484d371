#pragma once

#include <QQuickPaintedItem>
#include <qqmlintegration.h>

namespace quorvel {

/// A drawing in the theme's colours, repainted when they change. Serves the glyphs.
class ThemedItem : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ANONYMOUS

public:
    explicit ThemedItem(QQuickItem *parent = nullptr);

protected:
    /// Of a property that shows: takes the new value, repaints, and says whether it is one.
    template <typename Value>
    [[nodiscard]] bool change(Value &member, const Value &value)
    {
        if (member == value)
            return false;
        member = value;
        update();
        return true;
    }
};

} // namespace quorvel
