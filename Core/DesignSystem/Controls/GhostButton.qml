pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// A quiet button. Deliberate: only the pressed state changes its look.
Pressable {
    id: root

    implicitHeight: label.implicitHeight + 10
    implicitWidth: Math.ceil(label.implicitWidth) + 18

    Rectangle {
        anchors.fill: parent
        border.color: Theme.color.border
        border.width: 1
        color: root.pressed ? Theme.color.hover : "transparent"
        radius: 6
    }

    PlainText {
        id: label

        Accessible.ignored: true
        anchors.centerIn: parent
        color: Theme.color.textSecondary
        font: Theme.font.captionMedium
        text: root.label
    }
}
