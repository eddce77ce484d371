pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem
import Quorvel.History

// The code that joins the café's Wi-Fi, and the name of the network.
Card {
    id: root

    required property VisitDetail detail
    readonly property string ssid: root.detail.card.ssid

    padding: 11

    Rectangle {
        id: paper

        readonly property real margin: 4

        color: Theme.lightColor.surface
        height: code.height + 2 * paper.margin
        radius: 8
        width: code.width + 2 * paper.margin

        WifiQRCode {
            id: code

            Accessible.name: root.detail.card.codeName
            Accessible.role: Accessible.Graphic
            anchors.centerIn: parent
            detail: root.detail
        }
    }

    Column {
        anchors.left: paper.right
        anchors.leftMargin: 14
        anchors.verticalCenter: paper.verticalCenter
        spacing: 4
        width: parent.width - x

        PlainText {
            color: Theme.color.textSecondary
            font: Theme.font.captionMedium
            text: "Scan to join wifi"
        }

        PlainText {
            font: Theme.font.bodyMedium
            text: root.ssid
            width: parent.width
            wrapMode: Text.Wrap
        }
    }
}
