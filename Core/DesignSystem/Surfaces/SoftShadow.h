#pragma once

#include <QQuickPaintedItem>
#include <qqmlintegration.h>

namespace quorvel {

/// What a rounded rectangle throws on what is behind it: soft, and a little downwards. It reaches
/// beyond the rectangle, which covers the middle of it, by `reach` on each side.
class SoftShadow : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(qreal cornerRadius READ cornerRadius WRITE setCornerRadius NOTIFY cornerRadiusChanged
                   REQUIRED)
    Q_PROPERTY(qreal reach READ reach CONSTANT)

public:
    explicit SoftShadow(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

    [[nodiscard]] qreal cornerRadius() const { return m_cornerRadius; }
    void setCornerRadius(qreal cornerRadius);
    [[nodiscard]] qreal reach() const;

signals:
    void cornerRadiusChanged();

private:
    qreal m_cornerRadius = 0;
};

} // namespace quorvel
