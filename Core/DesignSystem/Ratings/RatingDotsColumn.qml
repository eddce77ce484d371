pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// A short label and its score as dots.
Column {
    id: root

    required property string label
    required property int score

    Accessible.role: Accessible.StaticText
    Accessible.name: root.label + " " + RatingScale.description(root.score)
    spacing: 3

    PlainText {
        Accessible.ignored: true
        color: Theme.color.textTertiary
        font: Theme.font.ratingLabel
        text: root.label
    }

    RatingDots {
        score: root.score
    }
}
