pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// The background of a text field.
Rectangle {
    id: root

    required property FocusScope field

    anchors.fill: parent
    border.color: Theme.color.borderStrong
    border.width: 1
    color: Theme.color.field
    radius: 8

    FocusRing {
        control: root
        controlRadius: root.radius
        visible: root.field.activeFocus
    }
}
