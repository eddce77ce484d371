pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// A button as wide as its row. Its text is aligned with the texts of other rows.
Pressable {
    id: root

    implicitHeight: 28

    Rectangle {
        anchors.fill: parent
        color: root.hovered ? Theme.color.hover : "transparent"
        radius: 6
    }

    PlainText {
        Accessible.ignored: true
        anchors.left: parent.left
        anchors.leftMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        color: root.pressed ? Theme.color.textSecondary : Theme.color.textPrimary
        text: root.label
    }
}
