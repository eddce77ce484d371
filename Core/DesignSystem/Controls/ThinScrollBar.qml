pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import Quorvel.DesignSystem

// A scroll bar in the theme's colours.
ScrollBar {
    id: root

    contentItem: Rectangle {
        color: root.pressed || root.hovered ? Theme.color.textTertiary : Theme.color.borderStrong
        implicitWidth: 4
        radius: 2
    }
}
