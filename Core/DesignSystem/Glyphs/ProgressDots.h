#pragma once

#include "Core/DesignSystem/Theme/ThemedItem.h"

#include <QColor>
#include <QPainter>
#include <qqmlintegration.h>

namespace quorvel {

/// A ring of dots: one is bright, and the dots behind it fade. One frame of a ProgressIndicator.
class ProgressDots : public quorvel::ThemedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    Q_PROPERTY(int step READ step WRITE setStep NOTIFY stepChanged)

public:
    using ThemedItem::ThemedItem;

    void paint(QPainter *painter) override;

    [[nodiscard]] QColor color() const { return m_color; }
    void setColor(const QColor &color);
    /// The index of the bright dot. It counts up without end.
    [[nodiscard]] int step() const { return m_step; }
    void setStep(int step);

signals:
    void colorChanged();
    void stepChanged();

private:
    QColor m_color;
    int m_step = 0;
};

} // namespace quorvel
