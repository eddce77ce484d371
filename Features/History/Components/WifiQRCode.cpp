#include "Features/History/Components/WifiQRCode.h"

#include "Features/History/Visit/VisitWifiQR.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace quorvel {
namespace {

constexpr double largestSide = 128;
constexpr double stepsOfPoint = 2;

/// Of a code with that many modules along its side.
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
    // Blurred a little where a module is no whole number of pixels, and every module as large.
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
