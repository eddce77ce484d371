#include "Core/DesignSystem/Symbol.h"

#include "Core/DesignSystem/SymbolDrawing.h"

#include <QPainter>

namespace quorvel {

Symbol::Symbol(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
    setSize(16);
}

void Symbol::paint(QPainter *painter)
{
    if (m_name.isEmpty())
        return;
    painter->setRenderHint(QPainter::Antialiasing);
    painter->save();
    painter->scale(width() / SymbolDrawing::gridSize, height() / SymbolDrawing::gridSize);
    SymbolDrawing::draw(*painter, m_name);
    painter->restore();
    // Tinted as a whole, so that a translucent colour does not show where strokes overlap.
    painter->setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter->fillRect(boundingRect(), m_color);
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
