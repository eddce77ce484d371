#pragma once

#include <QObject>
#include <QString>

namespace quorvel {

/// One score of the rating form.
struct RatingRow
{
    Q_GADGET
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString hint MEMBER hint)
    Q_PROPERTY(int score MEMBER score)

public:
    QString title = {};
    QString hint = {}; ///< empty without one
    int score = 0;

    [[nodiscard]] const QString &id() const { return title; }

    friend bool operator==(const RatingRow &, const RatingRow &) = default;
};

} // namespace quorvel
