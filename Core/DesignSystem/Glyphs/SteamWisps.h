#pragma once

#include "Core/DesignSystem/Theme/ThemedItem.h"

#include <QColor>
#include <QPainter>

namespace quorvel {

/// Three wisps of steam at one moment of their rise. One frame of a SteamView.
class SteamWisps : public quorvel::ThemedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    Q_PROPERTY(qreal phase READ phase WRITE setPhase NOTIFY phaseChanged)

public:
    using ThemedItem::ThemedItem;

    void paint(QPainter *painter) override;

    [[nodiscard]] QColor color() const { return m_color; }
    void setColor(const QColor &color);
    /// The phase of the rise. At whole numbers it starts again.
    [[nodiscard]] qreal phase() const { return m_phase; }
    void setPhase(qreal phase);

signals:
    void colorChanged();
    void phaseChanged();

private:
    QColor m_color;
    qreal m_phase = 0;
};

} // namespace quorvel
