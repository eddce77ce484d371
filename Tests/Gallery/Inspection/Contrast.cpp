#include "Tests/Gallery/Inspection/Contrast.h"

#include <QRect>

#include <algorithm>
#include <cmath>
#include <optional>

namespace quorvel::tests {

namespace {

double linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &colour)
{
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

QColor over(const QColor &ink, const QColor &ground)
{
    const auto mix = [alpha = ink.alphaF()](float above, float below) {
        return std::clamp(above * alpha + below * (1 - alpha), 0.0F, 1.0F);
    };
    return QColor::fromRgbF(mix(ink.redF(), ground.redF()), mix(ink.greenF(), ground.greenF()),
                            mix(ink.blueF(), ground.blueF()));
}

} // namespace

double Contrast::between(const QColor &colour, const QColor &other)
{
    const double first = luminance(colour) + 0.05;
    const double second = luminance(other) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

double Contrast::least(const QColor &ink, const QImage &with, const QImage &without,
                       const QRectF &area)
{
    std::optional<double> least;
    std::optional<QRgb> last;
    const QRect pixels = area.toAlignedRect() & without.rect();
    for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
        for (int x = pixels.left(); x <= pixels.right(); ++x) {
            const QRgb ground = without.pixel(x, y);
            if (ground == last || ground == with.pixel(x, y))
                continue;
            last = ground;
            const double here = between(over(ink, QColor(ground)), QColor(ground));
            least = std::min(least.value_or(here), here);
        }
    }
    return least.value_or(1);
}

} // namespace quorvel::tests
