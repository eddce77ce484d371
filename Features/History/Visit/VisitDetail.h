#pragma once

#include "Features/History/Card/VisitCard.h"
#include "Features/History/HistoryRoles.h"
#include "Features/History/Share/VisitShare.h"

#include <QImage>
#include <QPointer>

namespace quorvel {

/// A visit that is open, for its view: the card in words, which is there at once, and its pictures,
/// which come when they are loaded. Of the Wi-Fi's password it has nothing but the code.
class VisitDetail final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the history")
    Q_PROPERTY(quorvel::VisitCard card READ card CONSTANT)
    Q_PROPERTY(bool hasWifiQR READ hasWifiQR NOTIFY wifiQRImageChanged)
    Q_PROPERTY(QString shareText READ shareText NOTIFY shareStateChanged)
    Q_PROPERTY(QString shareSymbol READ shareSymbol NOTIFY shareStateChanged)
    Q_PROPERTY(bool isSharing READ isSharing NOTIFY shareStateChanged)

public:
    VisitDetail(std::shared_ptr<CheckIn> checkIn, const HistoryRoles &roles,
                QObject *parent = nullptr);

    /// Once, when the visit is shown. Answers that come after this is gone go nowhere.
    void load();
    /// By the Share button.
    Q_INVOKABLE void share() { m_share.share(); }

    [[nodiscard]] const std::shared_ptr<CheckIn> &checkIn() const { return m_checkIn; }
    [[nodiscard]] const VisitCard &card() const { return m_card; }
    /// Null while there is none.
    [[nodiscard]] const QImage &photoImage() const { return m_photoImage; }
    [[nodiscard]] const QImage &wifiQRImage() const { return m_wifiQRImage; }
    [[nodiscard]] bool hasWifiQR() const { return !m_wifiQRImage.isNull(); }
    [[nodiscard]] ShareState shareState() const { return m_share.state(); }
    [[nodiscard]] QString shareText() const { return ShareTexts::label(shareState()); }
    [[nodiscard]] QString shareSymbol() const { return ShareTexts::symbol(shareState()); }
    [[nodiscard]] bool isSharing() const { return shareState() == ShareState::Working; }

signals:
    void photoImageChanged();
    void wifiQRImageChanged();
    void shareStateChanged();

private:
    using Picture = std::optional<QImage>;

    [[nodiscard]] static Task<> loadPhoto(QPointer<VisitDetail> self, Task<Picture> photo);
    [[nodiscard]] static Task<> loadWifiQR(QPointer<VisitDetail> self, Task<Picture> wifiQR);

    [[nodiscard]] QString shareSlug() const;
    [[nodiscard]] VisitShare::Picture picture();

    HistoryRoles m_roles;
    std::shared_ptr<CheckIn> m_checkIn;
    VisitCard m_card;
    QImage m_photoImage;
    QImage m_wifiQRImage;
    VisitShare m_share;
};

} // namespace quorvel
