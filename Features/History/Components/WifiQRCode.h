#pragma once

#include "Features/History/Visit/VisitDetail.h"

#include <QPainter>
#include <QQuickPaintedItem>

namespace quorvel {

/// The code that joins a visit's Wi-Fi, about as large as a camera likes it, and of no size while
/// there is none. Its modules are half or whole points, so that they are sharp in a shared picture.
class WifiQRCode : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(
        quorvel::VisitDetail *detail READ detail WRITE setDetail NOTIFY detailChanged REQUIRED)

public:
    using QQuickPaintedItem::QQuickPaintedItem;

    void paint(QPainter *painter) override;

    /// Whose code it is. Set once; may go before this.
    [[nodiscard]] VisitDetail *detail() const { return m_detail; }
    void setDetail(VisitDetail *detail);

signals:
    void detailChanged();

private:
    void follow();

    QPointer<VisitDetail> m_detail;
};

} // namespace quorvel
