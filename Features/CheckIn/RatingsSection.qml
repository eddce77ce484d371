pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.CheckIn
import Quorvel.DesignSystem

// The four scores of a visit.
Column {
    id: root

    required property LocatedScreen screen

    objectName: "RatingsSection"
    spacing: 8

    Eyebrow {
        title: "Rate this spot"
    }

    Repeater {
        model: root.screen.ratings

        RatingRow {
            required property string title
            required property int score
            required property int index
            required hint

            label: title
            value: score
            width: root.width

            onEdited: value => root.screen.setRating(index, value)
        }
    }
}
