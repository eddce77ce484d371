#include "Core/DesignSystem/SymbolDrawing.h"

#include <QHash>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvel::SymbolDrawing {
namespace {

constexpr double lineWidth = 1.75;
/// In points: a thinner line would be a pale one on a coarse screen.
constexpr double thinnestLine = 1.2;

/// The mug seen from the side, without its handle.
QPainterPath mug()
{
    QPainterPath path({4, 4.5});
    path.lineTo(17, 4.5);
    path.lineTo(17, 10);
    path.cubicTo(17, 13.75, 14.5, 16, 10.5, 16);
    path.cubicTo(6.5, 16, 4, 13.75, 4, 10);
    path.closeSubpath();
    return path;
}

QPainterPath handle()
{
    QPainterPath path({17, 6.25});
    path.lineTo(18.25, 6.25);
    path.cubicTo(22.25, 6.25, 22.25, 12.25, 18.25, 12.25);
    path.lineTo(16.5, 12.25);
    return path;
}

void drawCupAndSaucerFilled(QPainter &painter)
{
    painter.fillPath(mug(), Qt::black);
    painter.drawPath(mug());
    painter.drawPath(handle());
    painter.drawLine(QPointF(3, 20.25), QPointF(18, 20.25));
}

void drawClock(QPainter &painter)
{
    painter.drawEllipse(QPointF(12, 12), 9.75, 9.75);
    painter.drawPolyline(QPolygonF({{12, 6.25}, {12, 12}, {15.5, 14}}));
}

const QHash<QString, void (*)(QPainter &)> &drawings()
{
    static const QHash<QString, void (*)(QPainter &)> all{
        {u"clock"_s, drawClock},
        {u"cup.and.saucer.fill"_s, drawCupAndSaucerFilled},
    };
    return all;
}

} // namespace

QStringList names()
{
    return drawings().keys();
}

void draw(QPainter &painter, const QString &name)
{
    const auto drawing = drawings().value(name);
    if (!drawing) {
        qWarning("No symbol is named \"%s\"", qUtf8Printable(name));
        return;
    }
    const double pointsPerUnit = painter.worldTransform().m11();
    const double width = std::max(lineWidth, thinnestLine / pointsPerUnit);
    painter.setPen(QPen(Qt::black, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    drawing(painter);
}

} // namespace quorvel::SymbolDrawing
