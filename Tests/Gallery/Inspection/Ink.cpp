#include "Tests/Gallery/Inspection/Ink.h"

#include "Tests/Support/QuickTest.h"

#include <QSizeF>

#include <algorithm>

namespace quorvel::tests {

namespace {

double opacity(const QQuickItem *item)
{
    double opacity = 1;
    for (; item; item = item->parentItem())
        opacity *= item->opacity();
    return opacity;
}

QColor colour(const QQuickItem *item)
{
    auto colour = item->property("color").value<QColor>();
    colour.setAlphaF(float(colour.alphaF() * opacity(item)));
    return colour;
}

/// The area of the letters within the text's own rectangle.
QRectF letters(const QQuickItem *text)
{
    const QSizeF size(text->property("contentWidth").toReal(),
                      text->property("contentHeight").toReal());
    const int across = text->property("effectiveHorizontalAlignment").toInt();
    const qreal free = std::max(0.0, text->width() - size.width());
    const qreal left = across == Qt::AlignHCenter ? free / 2 : across == Qt::AlignRight ? free : 0;
    return {{left, 0}, size};
}

bool isText(const QQuickItem *item)
{
    return item->inherits("QQuickText") || item->inherits("QQuickTextInput") ||
           item->inherits("QQuickTextEdit");
}

} // namespace

QRectF unclipped(const QQuickItem &item, const QRectF &rectangle)
{
    QRectF area = item.mapRectToScene(rectangle);
    for (const auto *holder = &item; holder; holder = holder->parentItem())
        if (holder->clip())
            area &= holder->mapRectToScene(QRectF({}, holder->size()));
    return area;
}

QList<Ink> inksIn(QQuickItem &view)
{
    QList<Ink> inks;
    for (QQuickItem *item : QuickTest::itemsUnder(&view)) {
        if (!item->isVisible() || opacity(item) == 0)
            continue;
        const bool isSymbol = item->inherits("quorvel::Symbol");
        if (!isSymbol && !isText(item))
            continue;
        const auto text = item->property(isSymbol ? "name" : "text").toString();
        const QRectF own = isSymbol ? QRectF({}, item->size()) : letters(item);
        const QRectF area = unclipped(*item, own);
        const bool isWhole = area == item->mapRectToScene(own);
        if (!text.isEmpty() && !area.isEmpty())
            inks.append({item, area, colour(item), text, !isSymbol, isWhole});
    }
    return inks;
}

} // namespace quorvel::tests
