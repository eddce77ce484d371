#pragma once

#include <QFont>
#include <QObject>
#include <qqmlintegration.h>

namespace quorvel {

/// The theme's text styles in the system's typeface: `Theme.font.body` in a view. Each style is a
/// complete font, since QML cannot change one part of a font value.
class ThemeFont final : public QObject
{
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(QFont cafeName READ cafeName CONSTANT)
    Q_PROPERTY(QFont tempLarge READ tempLarge CONSTANT)
    Q_PROPERTY(QFont body READ body CONSTANT)
    Q_PROPERTY(QFont caption READ caption CONSTANT)
    Q_PROPERTY(QFont button READ button CONSTANT)
    Q_PROPERTY(QFont eyebrow READ eyebrow CONSTANT)
    Q_PROPERTY(QFont trackedEyebrow READ trackedEyebrow CONSTANT)
    Q_PROPERTY(QFont captionMedium READ captionMedium CONSTANT)
    Q_PROPERTY(QFont title READ title CONSTANT)
    Q_PROPERTY(QFont tag READ tag CONSTANT)
    Q_PROPERTY(QFont ratingLabel READ ratingLabel CONSTANT)
    Q_PROPERTY(QFont bodyMedium READ bodyMedium CONSTANT)
    Q_PROPERTY(QFont captionSemibold READ captionSemibold CONSTANT)
    Q_PROPERTY(QFont chipTemperature READ chipTemperature CONSTANT)
    Q_PROPERTY(QFont cardTitle READ cardTitle CONSTANT)

public:
    explicit ThemeFont(QObject *theme)
        : QObject(theme)
    {}

    [[nodiscard]] QFont cafeName() const { return m_cafeName; }
    /// In a typeface with rounded strokes, if the system has one.
    [[nodiscard]] QFont tempLarge() const;
    [[nodiscard]] QFont body() const { return m_body; }
    [[nodiscard]] QFont caption() const { return m_caption; }
    [[nodiscard]] QFont button() const { return m_button; }
    [[nodiscard]] QFont eyebrow() const { return m_eyebrow; }

    /// `eyebrow` with the tracking of an Eyebrow.
    [[nodiscard]] QFont trackedEyebrow() const;
    /// `caption` in the weight of a ghost button.
    [[nodiscard]] QFont captionMedium() const { return m_captionMedium; }
    /// The program's name in the header of its panel.
    [[nodiscard]] QFont title() const { return m_title; }
    /// The word in a Tag.
    [[nodiscard]] QFont tag() const { return m_tag; }
    /// The short word above RatingDots, with its tracking.
    [[nodiscard]] QFont ratingLabel() const;
    /// `body`, heavier: the main text of a row.
    [[nodiscard]] QFont bodyMedium() const { return m_bodyMedium; }
    /// `caption`, heavier: the last line of a shared card.
    [[nodiscard]] QFont captionSemibold() const { return m_captionSemibold; }
    /// The temperature over the picture of a shared card.
    [[nodiscard]] QFont chipTemperature() const { return m_chipTemperature; }
    /// The café's name on a shared card.
    [[nodiscard]] QFont cardTitle() const { return m_cardTitle; }

private:
    /// The size in points. A point is a logical pixel.
    [[nodiscard]] static QFont system(int size, QFont::Weight weight);

    QFont m_cafeName = system(17, QFont::DemiBold);
    QFont m_body = system(13, QFont::Normal);
    QFont m_caption = system(11, QFont::Normal);
    QFont m_button = system(13, QFont::DemiBold);
    QFont m_eyebrow = system(10, QFont::DemiBold);
    QFont m_captionMedium = system(11, QFont::Medium);
    QFont m_title = system(13, QFont::DemiBold);
    QFont m_tag = system(8, QFont::DemiBold);
    QFont m_bodyMedium = system(13, QFont::Medium);
    QFont m_captionSemibold = system(11, QFont::DemiBold);
    QFont m_chipTemperature = system(14, QFont::DemiBold);
    QFont m_cardTitle = system(19, QFont::Bold);
};

} // namespace quorvel
