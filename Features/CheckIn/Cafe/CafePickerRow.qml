pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// One café to choose.
Pressable {
    id: root

    required property string distance

    Accessible.description: root.distance
    implicitHeight: 40

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: -8
        anchors.rightMargin: -8
        color: root.pressed || root.hovered ? Theme.color.hover : "transparent"
        radius: 6
    }

    PlainText {
        Accessible.ignored: true
        anchors.left: parent.left
        anchors.right: meters.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        elide: Text.ElideRight
        text: root.label
    }

    PlainText {
        id: meters

        Accessible.ignored: true
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.color.textSecondary
        font: Theme.font.caption
        text: root.distance
    }
}
