#pragma once

#include "Core/DesignSystem/Theme/ThemedItem.h"

#include <QPainter>

namespace quorvel {

/// The weather as a symbol, in the colour of its condition. `conditionLabel` names the condition.
class WeatherGlyph : public quorvel::ThemedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(int code READ code WRITE setCode NOTIFY conditionChanged REQUIRED)
    Q_PROPERTY(bool isDay READ isDay WRITE setIsDay NOTIFY conditionChanged REQUIRED)
    Q_PROPERTY(qreal size READ size WRITE setSize NOTIFY sizeChanged REQUIRED)
    Q_PROPERTY(bool isOnWhite READ isOnWhite WRITE setOnWhite NOTIFY isOnWhiteChanged)
    Q_PROPERTY(QString conditionLabel READ conditionLabel NOTIFY conditionChanged)

public:
    using ThemedItem::ThemedItem;

    void paint(QPainter *painter) override;

    [[nodiscard]] int code() const { return m_code; }
    void setCode(int code);
    [[nodiscard]] bool isDay() const { return m_isDay; }
    void setIsDay(bool isDay);
    /// The side of the symbol's square, in points.
    [[nodiscard]] qreal size() const { return m_size; }
    void setSize(qreal size);
    /// Whether the glyph stands on white in light and in dark.
    [[nodiscard]] bool isOnWhite() const { return m_isOnWhite; }
    void setOnWhite(bool isOnWhite);
    [[nodiscard]] QString conditionLabel() const;

signals:
    void conditionChanged();
    void sizeChanged();
    void isOnWhiteChanged();

private:
    int m_code = 0;
    bool m_isDay = true;
    qreal m_size = 0;
    bool m_isOnWhite = false;
};

} // namespace quorvel
