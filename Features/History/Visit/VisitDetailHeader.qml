pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// The way back to the list, and the button that shares the card.
Rectangle {
    id: root

    required property string shareText
    required property string shareSymbol
    required property bool isSharing

    signal backRequested
    signal shareRequested

    color: Theme.color.surface
    implicitHeight: share.height + 2 * 8

    Pressable {
        id: back

        anchors.left: parent.left
        anchors.leftMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        implicitHeight: share.height
        implicitWidth: backLabel.implicitWidth + 12
        label: "Check-ins"

        onClicked: root.backRequested()

        Rectangle {
            anchors.fill: parent
            color: back.pressed || back.hovered ? Theme.color.hover : "transparent"
            radius: back.cornerRadius
        }

        SymbolLabel {
            id: backLabel

            anchors.centerIn: parent
            color: Theme.color.textPrimary
            font: Theme.font.bodyMedium
            label: back.label
            symbol: "chevron.left"
        }
    }

    PrimaryButton {
        id: share

        anchors.right: parent.right
        anchors.rightMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        busy: root.isSharing
        height: 30
        label: root.shareText
        symbol: root.shareSymbol

        onClicked: root.shareRequested()
    }

    Rectangle {
        anchors.bottom: parent.bottom
        color: Theme.color.border
        height: 1
        width: parent.width
    }
}
