#pragma once

#include <QColor>
#include <QPainter>
#include <QQuickItem>
#include <QQuickPaintedItem>
#include <qqmlintegration.h>

namespace quorvel {

/// A symbol by name, in one colour and any size: the icon beside a text or in a button. An empty
/// name draws nothing. Assistive tools skip it; the control around it has the name.
class Symbol : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged REQUIRED)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    Q_PROPERTY(qreal size READ size WRITE setSize NOTIFY sizeChanged)

public:
    explicit Symbol(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

    [[nodiscard]] QString name() const { return m_name; }
    void setName(const QString &name);
    [[nodiscard]] QColor color() const { return m_color; }
    void setColor(const QColor &color);
    /// The side of the square that holds the symbol, in points.
    [[nodiscard]] qreal size() const { return m_size; }
    void setSize(qreal size);

signals:
    void nameChanged();
    void colorChanged();
    void sizeChanged();

private:
    QString m_name;
    QColor m_color = Qt::black;
    qreal m_size = 0;
};

} // namespace quorvel
