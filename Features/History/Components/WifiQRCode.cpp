#include "Features/History/Components/WifiQRCode.h"

#include "Features/History/Visit/VisitWifiQR.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace quorvel {
namespace {

constexpr double largestSide = 128;
constexpr double stepsOfPoint = 2;

/// The side of a code with this many modules.
double sideOf(double modules)
{
    const double steps = std::floor(stepsOfPoint * largestSide / modules);
    return modules * std::max(1.0, steps) / stepsOfPoint;
}

} // namespace

void WifiQRCode::paint(QPainter *painter)
{
    if (!m_detail || !m_detail->hasWifiQR())
        return;
    // If a module is not a whole number of pixels, slight blur keeps all modules the same size.
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawImage(boundingRect(), m_detail->wifiQRImage());
}

void WifiQRCode::setDetail(VisitDetail *detail)
{
    if (m_detail == detail)
        return;
    m_detail = detail;
    connect(detail, &VisitDetail::wifiQRImageChanged, this, &WifiQRCode::follow);
    follow();
    emit detailChanged();
}

void WifiQRCode::follow()
{
    const int pixels = m_detail->wifiQRImage().width();
    const double side = pixels > 0 ? sideOf(pixels / VisitWifiQR::scale) : 0;
    setImplicitSize(side, side);
    update();
}

} // namespace quorvel
