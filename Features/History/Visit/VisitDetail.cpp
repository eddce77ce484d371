#include "Features/History/Visit/VisitDetail.h"

#include "Core/Persistence/CheckInPhotoStore.h"
#include "Features/History/Card/VisitBanner.h"
#include "Features/History/Share/VisitPicture.h"
#include "Features/History/Visit/VisitPhoto.h"
#include "Features/History/Visit/VisitWifiQR.h"
#include "Platform/Clock/Clock.h"
#include "Services/Share/ShareSlug.h"

#include <QSize>

#include <memory>
#include <optional>
#include <utility>

namespace quorvel {

namespace {

/// Sharp enough for the shared picture.
constexpr QSize photoArea = VisitBanner::sizeInPoints * VisitPicture::pixelsPerPoint;

std::optional<QString> ssidOf(const CheckIn &checkIn)
{
    return checkIn.cafe() ? checkIn.cafe()->lastKnownSSID() : std::nullopt;
}

} // namespace

VisitDetail::VisitDetail(std::shared_ptr<CheckIn> checkIn, const Facilities &facilities,
                         Pasteboard &pasteboard, CardRenderer renderCard, QObject *parent)
    : QObject(parent)
    , m_facilities(facilities)
    , m_renderCard(std::move(renderCard))
    , m_checkIn(std::move(checkIn))
    , m_card(VisitCard::of(*m_checkIn, facilities.clock.calendar(), facilities.clock.locale()))
    , m_share({.slug = [this] { return shareSlug(); }, .picture = [this] { return picture(); }},
              pasteboard, facilities.fileManager)
{}

void VisitDetail::load()
{
    const CheckInPhotoStore photos(m_facilities.fileManager);
    spawn(loadPhoto(this, VisitPhoto::load(photos, m_checkIn->photoFilename(), photoArea)));
    spawn(loadWifiQR(this, VisitWifiQR::load(ssidOf(*m_checkIn), m_facilities.makeKeychain)));
}

Task<> VisitDetail::loadPhoto(QPointer<VisitDetail> self, Task<Picture> photo)
{
    const auto image = co_await photo;
    if (!self || !image)
        co_return;
    self->m_photoImage = *image;
    emit self->photoImageChanged();
}

Task<> VisitDetail::loadWifiQR(QPointer<VisitDetail> self, Task<Picture> wifiQR)
{
    const auto image = co_await wifiQR;
    if (!self || !image)
        co_return;
    self->m_wifiQRImage = *image;
    emit self->wifiQRImageChanged();
}

QString VisitDetail::shareSlug() const
{
    return ShareSlug::of(*m_checkIn, m_facilities.clock.calendar());
}

VisitShare::Picture VisitDetail::picture()
{
    return {.image = m_renderCard(*this), .secrecy = hasWifiQR() ? Secrecy::Secret : Secrecy::Open};
}

} // namespace quorvel
