pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// Marks the control that has the keyboard focus. The ring is drawn around the control.
Rectangle {
    id: root

    required property Item control
    property real controlRadius: 6
    // Negative for a ring inside the control.
    property real gap: 3

    anchors.fill: root.control
    anchors.margins: -root.gap
    border.color: Theme.color.accent
    border.width: 2
    color: "transparent"
    radius: root.controlRadius + root.gap
    visible: root.control.activeFocus
}
