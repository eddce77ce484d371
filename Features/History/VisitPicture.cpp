#include "Features/History/VisitPicture.h"

#include "Core/DesignSystem/ImageRenderer.h"
#include "Features/History/VisitDetail.h"

namespace quorvel::VisitPicture {

namespace {

using namespace Qt::StringLiterals;

constexpr qreal pixelsPerPoint = 2;

} // namespace

QImage image(QQmlEngine &engine, VisitDetail &detail)
{
    return ImageRenderer::image(engine, u"History"_s, u"VisitCardView"_s,
                                {{u"detail"_s, QVariant::fromValue(&detail)}}, pixelsPerPoint);
}

} // namespace quorvel::VisitPicture
