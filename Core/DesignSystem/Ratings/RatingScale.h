#pragma once

#include <QObject>
#include <qqmlintegration.h>

namespace quorvel {

/// The scale of scores, and how a change stays within it. Serves the rating controls.
class RatingScale : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(int lowest READ lowest CONSTANT)
    Q_PROPERTY(int highest READ highest CONSTANT)

public:
    [[nodiscard]] static int lowest();
    [[nodiscard]] static int highest();

    [[nodiscard]] Q_INVOKABLE static int raised(int score);
    [[nodiscard]] Q_INVOKABLE static int lowered(int score);
    [[nodiscard]] Q_INVOKABLE static int clamped(int score);
    /// Whether the star or dot at `place`, counted from 1, is lit for the score.
    [[nodiscard]] Q_INVOKABLE static bool isLit(int place, int score);
    /// "3 of 5"
    [[nodiscard]] Q_INVOKABLE static QString description(int score);
};

} // namespace quorvel
