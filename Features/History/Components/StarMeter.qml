pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// Shows a score: five stars, `value` of them lit. Assistive tools see one element.
Row {
    id: root

    required property string label
    required property int value

    Accessible.role: Accessible.StaticText
    Accessible.name: root.label + " " + RatingScale.description(root.value)
    spacing: 2

    Repeater {
        model: RatingScale.highest

        Symbol {
            required property int index
            readonly property bool lit: RatingScale.isLit(index + 1, root.value)

            color: lit ? Theme.color.starOn : Theme.color.starOff
            name: lit ? "star.fill" : "star"
            size: 12
        }
    }
}
