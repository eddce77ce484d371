pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// A block with a background and a border. It is as high as its content.
Rectangle {
    id: root

    property real padding: 12
    default property alias content: holder.data

    border.color: Theme.color.border
    border.width: 1
    color: Theme.color.card
    implicitHeight: holder.childrenRect.height + 2 * root.padding
    implicitWidth: holder.childrenRect.width + 2 * root.padding
    radius: 10

    Item {
        id: holder

        anchors.fill: parent
        anchors.margins: root.padding
    }
}
