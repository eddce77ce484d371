pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// Where the keyboard is. Drawn around a control and no part of its own look.
Rectangle {
    id: root

    required property Item control
    property real controlRadius: 6
    // Negative for a ring within the control.
    property real gap: 3

    anchors.fill: root.control
    anchors.margins: -root.gap
    border.color: Theme.color.accent
    border.width: 2
    color: "transparent"
    radius: root.controlRadius + root.gap
    visible: root.control.activeFocus
}
