#pragma once

#include "Features/History/Visit/VisitDetail.h"

#include <QPainter>
#include <QQuickPaintedItem>

namespace quorvel {

/// The code that joins a visit's Wi-Fi, in a size that cameras read well; no size without a code.
/// Its modules are half or whole points, so that a shared picture is sharp.
class WifiQRCode : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(
        quorvel::VisitDetail *detail READ detail WRITE setDetail NOTIFY detailChanged REQUIRED)

public:
    using QQuickPaintedItem::QQuickPaintedItem;

    void paint(QPainter *painter) override;

    /// The visit whose code it shows. Set once. The visit may be destroyed before this.
    [[nodiscard]] VisitDetail *detail() const { return m_detail; }
    void setDetail(VisitDetail *detail);

signals:
    void detailChanged();

private:
    void follow();

    QPointer<VisitDetail> m_detail;
};

} // namespace quorvel
