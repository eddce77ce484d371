#pragma once

#include "Core/DesignSystem/Theme/ThemedItem.h"

#include <QPainter>

namespace quorvel {

/// A network's strength: bars that grow to the right, `bars` of them lit. A text beside it gives
/// the strength in words.
class SignalBarsView : public quorvel::ThemedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(int bars READ bars WRITE setBars NOTIFY barsChanged REQUIRED)
    Q_PROPERTY(qreal size READ size WRITE setSize NOTIFY sizeChanged REQUIRED)
    Q_PROPERTY(QList<qreal> heights READ heights WRITE setHeights NOTIFY heightsChanged REQUIRED)

public:
    using ThemedItem::ThemedItem;

    void paint(QPainter *painter) override;

    /// Whether the bar at `index`, counted from 0, is lit.
    [[nodiscard]] static bool isLit(int index, int bars);

    [[nodiscard]] int bars() const { return m_bars; }
    void setBars(int bars);
    /// The height of the whole view, in points.
    [[nodiscard]] qreal size() const { return m_size; }
    void setSize(qreal size);
    /// The height of each bar, in points.
    [[nodiscard]] QList<qreal> heights() const { return m_heights; }
    void setHeights(const QList<qreal> &heights);

signals:
    void barsChanged();
    void sizeChanged();
    void heightsChanged();

private:
    void measure();

    int m_bars = 0;
    qreal m_size = 0;
    QList<qreal> m_heights;
};

} // namespace quorvel
