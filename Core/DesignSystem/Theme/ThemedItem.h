#pragma once

#include <QQuickItem>
#include <QQuickPaintedItem>
#include <qqmlintegration.h>

namespace quorvel {

/// A painted item in the theme's colours. It repaints when they change. Serves the glyphs.
class ThemedItem : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ANONYMOUS

public:
    explicit ThemedItem(QQuickItem *parent = nullptr);

protected:
    /// Stores the new value of a visible property and repaints. Returns whether it changed.
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
