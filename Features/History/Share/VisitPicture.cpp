#include "Features/History/Share/VisitPicture.h"

#include "Core/DesignSystem/Rendering/ImageRenderer.h"
#include "Features/History/Visit/VisitDetail.h"

#include <QQmlEngine>
#include <QVariant>

namespace quorvel::VisitPicture {

using namespace Qt::StringLiterals;

QImage image(QQmlEngine &engine, VisitDetail &detail)
{
    return ImageRenderer::image(engine, u"History"_s, u"VisitCardView"_s,
                                {{u"detail"_s, QVariant::fromValue(&detail)}}, pixelsPerPoint);
}

} // namespace quorvel::VisitPicture
