#pragma once

#include <QPainter>
#include <QQuickItem>
#include <QQuickPaintedItem>
#include <qqmlintegration.h>

namespace quorvel {

/// The soft shadow of a rounded rectangle, shifted slightly downwards. It extends beyond the
/// rectangle by `reach` on each side; the rectangle covers its middle.
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
