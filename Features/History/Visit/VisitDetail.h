#pragma once

#include "Core/DI/Facilities.h"
#include "Features/History/Card/VisitCard.h"
#include "Features/History/Share/VisitShare.h"

#include <QImage>
#include <QPointer>

#include <functional>
#include <memory>
#include <optional>

namespace quorvel {

class VisitDetail;

/// Draws the open visit's card as it is shown; null if that fails.
using CardRenderer = std::function<QImage(VisitDetail &)>;

/// An open visit, for its view: the texts of the card at once, its pictures when they are loaded.
/// It never holds the Wi-Fi password, only the code.
class VisitDetail final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the history")
    Q_PROPERTY(quorvel::VisitCard card READ card CONSTANT)
    Q_PROPERTY(bool hasWifiQR READ hasWifiQR NOTIFY wifiQRImageChanged)
    Q_PROPERTY(quorvel::VisitShare *share READ share CONSTANT)

public:
    /// The facilities and the pasteboard must outlive this.
    VisitDetail(std::shared_ptr<CheckIn> checkIn, const Facilities &facilities,
                Pasteboard &pasteboard, CardRenderer renderCard, QObject *parent = nullptr);

    /// Call it once, when the visit is shown. Answers that arrive after this is destroyed are
    /// dropped.
    void load();

    [[nodiscard]] const std::shared_ptr<CheckIn> &checkIn() const { return m_checkIn; }
    [[nodiscard]] const VisitCard &card() const { return m_card; }
    /// Null while there is none.
    [[nodiscard]] const QImage &photoImage() const { return m_photoImage; }
    [[nodiscard]] const QImage &wifiQRImage() const { return m_wifiQRImage; }
    [[nodiscard]] bool hasWifiQR() const { return !m_wifiQRImage.isNull(); }
    [[nodiscard]] VisitShare *share() { return &m_share; }

signals:
    void photoImageChanged();
    void wifiQRImageChanged();

private:
    using Picture = std::optional<QImage>;

    [[nodiscard]] static Task<> loadPhoto(QPointer<VisitDetail> self, Task<Picture> photo);
    [[nodiscard]] static Task<> loadWifiQR(QPointer<VisitDetail> self, Task<Picture> wifiQR);

    [[nodiscard]] QString shareSlug() const;
    [[nodiscard]] VisitShare::Picture picture();

    const Facilities &m_facilities;
    CardRenderer m_renderCard;
    std::shared_ptr<CheckIn> m_checkIn;
    VisitCard m_card;
    QImage m_photoImage;
    QImage m_wifiQRImage;
    VisitShare m_share;
};

} // namespace quorvel
