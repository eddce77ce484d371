#pragma once

#include <QColor>
#include <QPoint>
#include <QPointF>
#include <QQuickItem>
#include <QQuickWindow>
#include <QRegularExpression>
#include <QTest>
#include <QVariant>

namespace quorvel {

/// Helpers for all tests that show a window without a display.
namespace QuickTest {

/// Call it first in each case: a warning of the engine, for example about a broken binding, fails
/// the case.
inline void failOnWarnings()
{
    // A test's windows need not be raised above others.
    QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!This plugin does not support)")));
}

/// Visits the whole tree of `item`, starting with itself.
inline QList<QQuickItem *> itemsUnder(QQuickItem *item)
{
    QList<QQuickItem *> items{item};
    for (QQuickItem *child : item->childItems())
        items += itemsUnder(child);
    return items;
}

/// The first item whose `property` is `value`, or null.
inline QQuickItem *find(QQuickItem *root, const char *property, const QVariant &value)
{
    for (QQuickItem *item : itemsUnder(root))
        if (item->property(property) == value)
            return item;
    return nullptr;
}

/// The first visible item in `window` whose `property` is `value`, or null.
inline QQuickItem *shown(const QQuickWindow &window, const char *property, const QVariant &value)
{
    for (QQuickItem *item : itemsUnder(window.contentItem()))
        if (item->isVisible() && item->property(property) == value)
            return item;
    return nullptr;
}

inline QPoint centre(const QQuickItem *item)
{
    return item->mapToScene({item->width() / 2, item->height() / 2}).toPoint();
}

inline void click(QQuickItem *item)
{
    QTest::mouseClick(item->window(), Qt::LeftButton, Qt::NoModifier, centre(item));
}

/// The colour on screen at a point of `item`.
inline QColor pixel(const QQuickItem *item, QPointF at)
{
    return item->window()->grabWindow().pixelColor(item->mapToScene(at).toPoint());
}

} // namespace QuickTest
} // namespace quorvel
