#pragma once

#include "Core/DesignSystem/Theme/ThemedItem.h"

namespace quorvel {

/// A score to read: five dots in a row, as many of them lit. What they rate is said beside them.
class RatingDots : public quorvel::ThemedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(int score READ score WRITE setScore NOTIFY scoreChanged REQUIRED)

public:
    explicit RatingDots(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

    [[nodiscard]] int score() const { return m_score; }
    void setScore(int score);

signals:
    void scoreChanged();

private:
    int m_score = 0;
};

} // namespace quorvel
