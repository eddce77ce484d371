#include "Tests/Gallery/Inspection/ViewInspection.h"

#include "Core/DesignSystem/Theme/Theme.h"
#include "Tests/Gallery/Inspection/Contrast.h"
#include "Tests/Gallery/Inspection/Ink.h"
#include "Tests/Support/QuickTest.h"

#include <QAccessible>
#include <QFont>

#include <algorithm>
#include <utility>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

namespace {

/// The tolerance for sums of fractions, in points.
constexpr double tolerance = 0.51;

constexpr double forReading = 4.5;
constexpr double forLargeTextAndSymbols = 3;
// Elements whose colours the given palette decides.
constexpr double forDisabled = 2;
constexpr double forLabels = 2.6;
constexpr double forShapes = 1.9;
constexpr double forEmptyShapes = 1.3;
constexpr int largePoints = 17;

QString described(const QQuickItem &item)
{
    const auto name = [&item](const char *property) { return item.property(property).toString(); };
    const QString word = !name("text").isEmpty()    ? name("text")
                         : !name("label").isEmpty() ? name("label")
                                                    : name("name");
    return QString::fromLatin1(item.metaObject()->className()) + u" \""_s + word + u'"';
}

QString said(const QRectF &area)
{
    return u" at %1,%2 %3x%4"_s.arg(area.x()).arg(area.y()).arg(area.width()).arg(area.height());
}

bool isCut(const QQuickItem &text)
{
    const auto reaches = [&text](const char *content, double room) {
        return text.property(content).toReal() > room + tolerance;
    };
    return text.property("truncated").toBool() || reaches("contentWidth", text.width()) ||
           reaches("contentHeight", text.height());
}

/// A picture of the view without its texts and symbols.
QImage ground(QQuickItem &view, const QList<Ink> &inks)
{
    QList<std::pair<QQuickItem *, qreal>> hidden;
    const auto hide = [&hidden](QQuickItem *item) {
        hidden.append({item, item->opacity()});
        item->setOpacity(0);
    };
    for (const Ink &ink : inks)
        hide(ink.item);
    // The steam is part of its cup and not a background for it.
    for (QQuickItem *item : QuickTest::itemsUnder(&view))
        if (item->inherits("quorvel::SteamWisps"))
            hide(item);
    const QImage picture = view.window()->grabWindow();
    for (const auto &[item, opacity] : hidden)
        item->setOpacity(opacity);
    return picture;
}

/// Colours on screen have eight bits per channel.
bool isOneOf(const QColor &colour, const QList<QColor> &tokens)
{
    return std::ranges::any_of(
        tokens, [&colour](const QColor &token) { return token.rgba() == colour.rgba(); });
}

double neededBy(const Ink &ink)
{
    const auto &tokens = *Theme::shared().color();
    // Disabled controls may have less contrast, as long as they can be made out.
    if (!ink.item->isEnabled())
        return forDisabled;
    if (!ink.isText && isOneOf(ink.colour, {tokens.accent(), tokens.starOn()}))
        return forShapes;
    // Deliberate: the palette is given. Its tertiary, accent and success tokens are for labels and
    // marks that repeat a text beside them, or for shapes. None of them carries a sentence.
    if (isOneOf(ink.colour,
                {tokens.textTertiary(), tokens.accent(), tokens.accentDeep(), tokens.success()}))
        return forLabels;
    if (!ink.isText && isOneOf(ink.colour, {tokens.starOff()}))
        return forEmptyShapes;
    const auto font = ink.item->property("font").value<QFont>();
    const bool isLarge = !ink.isText || font.pixelSize() >= largePoints;
    return isLarge ? forLargeTextAndSymbols : forReading;
}

bool takesFocus(const QQuickItem *item)
{
    return item->activeFocusOnTab() && item->isVisible() && item->isEnabled();
}

QString accessibleName(QQuickItem *item)
{
    auto *interface = QAccessible::queryAccessibleInterface(item);
    return interface ? interface->text(QAccessible::Name) : QString();
}

const QQuickItem *shownRing(QQuickItem &view)
{
    for (const QQuickItem *item : QuickTest::itemsUnder(&view))
        if (item->isVisible() &&
            QString::fromLatin1(item->metaObject()->className()).startsWith(u"FocusRing"))
            return item;
    return nullptr;
}

QString focusProblem(QQuickItem &view, const QQuickItem &focused)
{
    const QQuickItem *ring = shownRing(view);
    if (!ring)
        return u"shows no focus"_s;
    const QRectF whole({}, ring->size());
    const QRectF seen = unclipped(*ring, whole) & QRectF({}, view.window()->size());
    const QRectF wished = ring->mapRectToScene(whole);
    if (seen.width() < wished.width() - tolerance || seen.height() < wished.height() - tolerance)
        return u"has its focus ring cut:"_s + said(wished);
    const QRectF control = focused.mapRectToScene(QRectF({}, focused.size()));
    return wished.intersects(control) ? QString() : u"shows its focus elsewhere"_s;
}

} // namespace

QStringList ViewInspection::leavingSideways(QQuickItem &view)
{
    QStringList complaints;
    for (const QQuickItem *item : QuickTest::itemsUnder(&view)) {
        const QRectF whole({}, item->size());
        if (!item->isVisible() || whole.isEmpty())
            continue;
        const QRectF area = item->mapRectToScene(whole);
        if (area.left() < -tolerance || area.right() > view.window()->width() + tolerance)
            complaints.append(described(*item) + said(area));
    }
    return complaints;
}

QStringList ViewInspection::cutTexts(QQuickItem &view, const QStringList &elided)
{
    QStringList complaints;
    for (const Ink &ink : inksIn(view))
        if (ink.item->inherits("QQuickText") && isCut(*ink.item) && !elided.contains(ink.text))
            complaints.append(described(*ink.item) + said(ink.area));
    return complaints;
}

QStringList ViewInspection::overlapping(QQuickItem &view)
{
    QStringList complaints;
    const QList<Ink> inks = inksIn(view);
    for (qsizetype first = 0; first < inks.size(); ++first) {
        for (qsizetype second = first + 1; second < inks.size(); ++second) {
            const QRectF common = inks[first].area & inks[second].area;
            if (common.width() > tolerance && common.height() > tolerance)
                complaints.append(described(*inks[first].item) + u" and "_s +
                                  described(*inks[second].item) + said(common));
        }
    }
    return complaints;
}

QStringList ViewInspection::pale(QQuickItem &view)
{
    QStringList complaints;
    const QList<Ink> inks = inksIn(view);
    const QImage with = view.window()->grabWindow();
    const QImage without = ground(view, inks);
    for (const Ink &ink : inks) {
        // An item that is half scrolled away may have nothing visible.
        if (!ink.isWhole)
            continue;
        const double contrast = Contrast::least(ink.colour, with, without, ink.area);
        if (contrast < neededBy(ink))
            complaints.append(described(*ink.item) +
                              u" has %1, needs %2"_s.arg(contrast).arg(neededBy(ink)));
    }
    return complaints;
}

QStringList ViewInspection::badlyFocused(QQuickItem &view)
{
    QStringList complaints;
    for (QQuickItem *item : QuickTest::itemsUnder(&view)) {
        if (!takesFocus(item))
            continue;
        if (accessibleName(item).isEmpty())
            complaints.append(described(*item) + u" has no name"_s);
        item->forceActiveFocus(Qt::TabFocusReason);
        const QString problem = focusProblem(view, *item);
        if (!problem.isEmpty())
            complaints.append(described(*item) + u' ' + problem);
    }
    return complaints;
}

} // namespace quorvel::tests
