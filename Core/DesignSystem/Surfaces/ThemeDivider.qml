pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// A hairline across the width, with a margin at both ends.
Item {
    id: root

    readonly property real inset: 16

    implicitHeight: 1
    implicitWidth: root.parent?.width ?? 0

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: root.inset
        anchors.rightMargin: root.inset
        color: Theme.color.border
    }
}
