#include "Features/History/Card/VisitBanner.h"

#include "Core/DesignSystem/Theme/Palette.h"

#include <QBrush>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QQuickItem>
#include <QRectF>
#include <QTransform>

#include <algorithm>

namespace quorvel {
namespace {

QBrush bannerGradient(const QRectF &area)
{
    QLinearGradient gradient(area.topLeft(), area.bottomRight());
    gradient.setColorAt(0, Palette::accentPale);
    gradient.setColorAt(0.5, Palette::accent);
    gradient.setColorAt(1, Palette::accentDeep);
    return gradient;
}

/// Scaled to cover the area, and centred.
QBrush covering(const QImage &photo, const QRectF &area)
{
    const double scale = std::max(area.width() / photo.width(), area.height() / photo.height());
    QTransform place;
    place.translate(area.center().x(), area.center().y());
    place.scale(scale, scale);
    place.translate(-photo.width() / 2.0, -photo.height() / 2.0);
    QBrush brush(photo);
    brush.setTransform(place);
    return brush;
}

} // namespace

VisitBanner::VisitBanner(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
    setImplicitSize(sizeInPoints.width(), sizeInPoints.height());
}

void VisitBanner::paint(QPainter *painter)
{
    painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter->fillPath(outline(), fill());
}

void VisitBanner::setDetail(VisitDetail *detail)
{
    if (m_detail == detail)
        return;
    m_detail = detail;
    connect(detail, &VisitDetail::photoImageChanged, this, [this] { update(); });
    update();
    emit detailChanged();
}

void VisitBanner::setCornerRadius(qreal cornerRadius)
{
    if (m_cornerRadius == cornerRadius)
        return;
    m_cornerRadius = cornerRadius;
    update();
    emit cornerRadiusChanged();
}

QBrush VisitBanner::fill() const
{
    const QRectF area = boundingRect();
    const QImage photo = m_detail ? m_detail->photoImage() : QImage();
    return photo.isNull() ? bannerGradient(area) : covering(photo, area);
}

QPainterPath VisitBanner::outline() const
{
    const QRectF area = boundingRect();
    QPainterPath rounded;
    rounded.addRoundedRect(area.adjusted(0, 0, 0, m_cornerRadius), m_cornerRadius, m_cornerRadius);
    QPainterPath straight;
    straight.addRect(area);
    return rounded & straight;
}

} // namespace quorvel
