#include "Core/DesignSystem/Theme/ThemeFont.h"

#include <QFontDatabase>

using namespace Qt::StringLiterals;

namespace quorvel {
namespace {

constexpr double eyebrowTracking = 0.7;
constexpr double ratingLabelTracking = 0.4;

QFont tracked(QFont font, double points)
{
    font.setLetterSpacing(QFont::AbsoluteSpacing, points);
    return font;
}

QFont rounded(QFont font)
{
    for (const auto &family : {u"Nunito"_s, u"Varela Round"_s, u"Quicksand"_s, u"Comfortaa"_s}) {
        if (QFontDatabase::hasFamily(family)) {
            font.setFamily(family);
            return font;
        }
    }
    return font;
}

} // namespace

QFont ThemeFont::tempLarge() const
{
    // On first use: looking up a family makes Qt read the list of all fonts.
    static const QFont font = rounded(system(28, QFont::Medium));
    return font;
}

QFont ThemeFont::trackedEyebrow() const
{
    return tracked(m_eyebrow, eyebrowTracking);
}

QFont ThemeFont::ratingLabel() const
{
    return tracked(system(9, QFont::DemiBold), ratingLabelTracking);
}

QFont ThemeFont::system(int size, QFont::Weight weight)
{
    QFont font;
    font.setPixelSize(size);
    font.setWeight(weight);
    // Hinting fits outlines to whole points. At scale 2 the software scene graph then clips the top
    // row of pixels.
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

} // namespace quorvel
