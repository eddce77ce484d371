#include "Features/History/VisitDetail.h"

#include "Features/History/VisitPhoto.h"
#include "Platform/Clock/Clock.h"

namespace quorvel {

namespace {

/// The banner of the card, in the pixels of a shared picture.
constexpr QSize photoArea(840, 320);

std::optional<QString> ssidOf(const CheckIn &checkIn)
{
    return checkIn.cafe() ? checkIn.cafe()->lastKnownSSID() : std::nullopt;
}

} // namespace

VisitDetail::VisitDetail(std::shared_ptr<CheckIn> checkIn, const HistoryRoles &roles,
                         QObject *parent)
    : QObject(parent)
    , m_roles(roles)
    , m_checkIn(std::move(checkIn))
    , m_card(VisitCard::of(*m_checkIn, roles.clock.calendar(), roles.clock.locale()))
{}

void VisitDetail::load()
{
    spawn(loadPhoto(this,
                    VisitPhoto::load(m_roles.photoStore, m_checkIn->photoFilename(), photoArea)));
    spawn(loadWifiQR(this, VisitWifiQR::load(ssidOf(*m_checkIn), m_roles.makeKeychain)));
}

void VisitDetail::share()
{
    if (m_shareState == ShareState::Idle)
        emit shareRequested();
}

void VisitDetail::setShareState(ShareState state)
{
    if (m_shareState == state)
        return;
    m_shareState = state;
    emit shareStateChanged();
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

} // namespace quorvel
