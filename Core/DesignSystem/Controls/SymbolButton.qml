pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// A button with a symbol and no text.
Pressable {
    id: root

    required property string symbol

    implicitHeight: 24
    implicitWidth: 24

    Rectangle {
        anchors.fill: parent
        color: root.hovered ? Theme.color.hover : "transparent"
        radius: 6
    }

    Symbol {
        anchors.centerIn: parent
        color: root.pressed ? Theme.color.textPrimary : Theme.color.textSecondary
        name: root.symbol
        size: 16
    }
}
