pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// The header of a day.
Item {
    id: root

    required property string title

    implicitHeight: text.implicitHeight + 2 * 4

    Rectangle {
        anchors.fill: parent
        color: Theme.color.card
        opacity: 0.6
        radius: 4
    }

    PlainText {
        id: text

        Accessible.role: Accessible.Heading
        anchors.left: parent.left
        anchors.leftMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.color.textSecondary
        font: Theme.font.eyebrow
        text: root.title
    }
}
