#pragma once

#include "Core/DesignSystem/Theme/ThemedItem.h"

#include <QPainter>
#include <QQuickItem>

namespace quorvel {

/// Shows a score: five dots in a row, `score` of them lit. A text beside them says what is rated.
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
