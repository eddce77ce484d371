#pragma once

#include "Core/DesignSystem/Theme/Theme.h"
#include "Tests/Support/QuickTest.h"

#include <QColor>
#include <QFont>
#include <QMarginsF>
#include <QRectF>
#include <QSizeF>

namespace quorvel {

/// How views look, by the tokens of the theme, and where their parts are. Serves the tests of
/// views.
namespace ViewLook {

inline QColor color(const QByteArray &token)
{
    return Theme::shared().color()->property(token.constData()).value<QColor>();
}

inline QFont font(const QByteArray &token)
{
    return Theme::shared().font()->property(token.constData()).value<QFont>();
}

/// A case has one row a text: which it is, and the tokens of its colour and its font.
inline void addColumns()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QByteArray>("colorToken");
    QTest::addColumn<QByteArray>("fontToken");
}

inline void addText(const QString &words, const char *colorToken, const char *fontToken)
{
    QTest::newRow(qPrintable(words)) << words << QByteArray(colorToken) << QByteArray(fontToken);
}

/// The first text on screen with these words, or null. Others than texts have words, too.
inline QQuickItem *text(const QQuickWindow &window, const QString &words)
{
    for (QQuickItem *item : QuickTest::itemsUnder(window.contentItem()))
        if (item->isVisible() && item->property("text") == words &&
            item->property("font").isValid())
            return item;
    return nullptr;
}

/// Fails the case unless these words are on screen in that colour and font.
inline void compareText(const QQuickWindow &window, const QString &words,
                        const QByteArray &colorToken, const QByteArray &fontToken)
{
    const QQuickItem *item = text(window, words);
    QVERIFY2(item, "the text is not on screen");
    QCOMPARE(item->property("color").value<QColor>(), color(colorToken));
    QCOMPARE(item->property("font").value<QFont>(), font(fontToken));
}

/// The same of this row.
inline void compareText(const QQuickWindow &window)
{
    QFETCH(const QString, words);
    QFETCH(const QByteArray, colorToken);
    QFETCH(const QByteArray, fontToken);
    compareText(window, words, colorToken, fontToken);
}

/// Fails the case unless `root` has this symbol on screen, so large and in that colour.
inline void compareSymbol(QQuickItem *root, const QString &name, double size,
                          const QByteArray &colorToken)
{
    const QQuickItem *symbol = QuickTest::find(root, "name", name);
    QVERIFY2(symbol && symbol->isVisible(), "the symbol is not on screen");
    QCOMPARE(symbol->size(), QSizeF(size, size));
    QCOMPARE(symbol->property("color").value<QColor>(), color(colorToken));
}

/// The first of a class of C++, or null.
inline QQuickItem *findClass(QQuickItem *root, const char *name)
{
    for (QQuickItem *item : QuickTest::itemsUnder(root))
        if (item->inherits(name))
            return item;
    return nullptr;
}

/// Ends the program where there is no such item.
inline QRectF place(const QQuickItem *item)
{
    if (!item)
        qFatal("what is to be measured is not on screen");
    return item->mapRectToScene(QRectF({}, item->size()));
}

/// How far the edges of `item` are inside those of `frame`.
inline QMarginsF margins(const QQuickItem *item, const QQuickItem *frame)
{
    const QRectF inner = place(item);
    const QRectF outer = place(frame);
    return {inner.left() - outer.left(), inner.top() - outer.top(), outer.right() - inner.right(),
            outer.bottom() - inner.bottom()};
}

/// From the right edge of one to the left edge of the next.
inline double across(const QQuickItem *item, const QQuickItem *next)
{
    return place(next).left() - place(item).right();
}

/// From the lower edge of one to the upper edge of the next.
inline double down(const QQuickItem *item, const QQuickItem *next)
{
    return place(next).top() - place(item).bottom();
}

} // namespace ViewLook
} // namespace quorvel
