#pragma once

#include "Features/History/Visit/VisitDetail.h"

#include <QBrush>
#include <QPainter>
#include <QQuickItem>
#include <QQuickPaintedItem>
#include <QSize>

class QPainterPath;

namespace quorvel {

/// The top of a visit's card: the photo, or a gradient without one. It is as wide as the card and
/// shares its upper corners.
class VisitBanner : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(
        quorvel::VisitDetail *detail READ detail WRITE setDetail NOTIFY detailChanged REQUIRED)
    Q_PROPERTY(qreal cornerRadius READ cornerRadius WRITE setCornerRadius NOTIFY cornerRadiusChanged
                   REQUIRED)

public:
    static constexpr QSize sizeInPoints{420, 160};

    explicit VisitBanner(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

    /// The visit whose photo it shows. Set once. The visit may be destroyed before this.
    [[nodiscard]] VisitDetail *detail() const { return m_detail; }
    void setDetail(VisitDetail *detail);
    [[nodiscard]] qreal cornerRadius() const { return m_cornerRadius; }
    void setCornerRadius(qreal cornerRadius);

signals:
    void detailChanged();
    void cornerRadiusChanged();

private:
    [[nodiscard]] QBrush fill() const;
    [[nodiscard]] QPainterPath outline() const;

    QPointer<VisitDetail> m_detail;
    qreal m_cornerRadius = 0;
};

} // namespace quorvel
