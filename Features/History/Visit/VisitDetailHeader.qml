pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem
import Quorvel.History

// The button back to the list, and the Share button.
Rectangle {
    id: root

    required property VisitShare share

    signal backRequested

    color: Theme.color.surface
    implicitHeight: shareButton.height + 2 * 8

    Pressable {
        id: back

        anchors.left: parent.left
        anchors.leftMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        implicitHeight: shareButton.height
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
        id: shareButton

        anchors.right: parent.right
        anchors.rightMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        busy: root.share.isSharing
        height: 30
        label: root.share.label
        symbol: root.share.symbol

        onClicked: root.share.shareCard()
    }

    Rectangle {
        anchors.bottom: parent.bottom
        color: Theme.color.border
        height: 1
        width: parent.width
    }
}
