pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// The window's title, a summary of the week, and the button back to the panel.
Rectangle {
    id: root

    // "3 visits · 2 cafés this week"
    required property string summary

    signal checkInRequested

    color: Theme.color.surface
    implicitHeight: 64

    Column {
        anchors.left: parent.left
        anchors.leftMargin: 16
        anchors.right: newCheckIn.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        spacing: 4

        PlainText {
            Accessible.role: Accessible.Heading
            font: Theme.font.cafeName
            text: "Your check-ins"
        }

        PlainText {
            color: Theme.color.textSecondary
            font: Theme.font.caption
            text: root.summary
        }
    }

    SecondaryButton {
        id: newCheckIn

        anchors.right: parent.right
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        label: "New check-in"
        symbol: "plus"
        symbolColor: Theme.color.accent

        onClicked: root.checkInRequested()
    }

    Rectangle {
        anchors.bottom: parent.bottom
        color: Theme.color.border
        height: 1
        width: parent.width
    }
}
