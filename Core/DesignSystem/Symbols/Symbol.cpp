#include "Core/DesignSystem/Symbols/Symbol.h"

#include "Core/DesignSystem/Symbols/SymbolDrawing.h"

#include <QPainter>
#include <QQuickItem>

namespace quorvel {

Symbol::Symbol(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
    setSize(16);
}

void Symbol::paint(QPainter *painter)
{
    if (!m_name.isEmpty())
        SymbolDrawing::drawTinted(*painter, m_name, m_color, {width(), height()});
}

void Symbol::setName(const QString &name)
{
    if (name != m_name) {
        m_name = name;
        update();
        emit nameChanged();
    }
}

void Symbol::setColor(const QColor &color)
{
    if (color != m_color) {
        m_color = color;
        update();
        emit colorChanged();
    }
}

void Symbol::setSize(qreal size)
{
    if (!qFuzzyCompare(size, m_size)) {
        m_size = size;
        setImplicitSize(size, size);
        emit sizeChanged();
    }
}

} // namespace quorvel
