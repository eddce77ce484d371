pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// The title of the block, and the progress of the scan.
Item {
    id: root

    required property bool scanning
    // "Scanning…" or "3 found"
    required property string count

    implicitHeight: 20

    Row {
        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        spacing: 6

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.color.textTertiary
            name: "wifi"
            size: 13
        }

        Eyebrow {
            anchors.verticalCenter: parent.verticalCenter
            title: "WiFi nearby"
        }
    }

    Row {
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        spacing: 6

        ProgressIndicator {
            anchors.verticalCenter: parent.verticalCenter
            size: 12
            visible: root.scanning
        }

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.color.textTertiary
            name: "magnifyingglass"
            size: 12
            visible: !root.scanning
        }

        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.color.textSecondary
            font: Theme.font.caption
            text: root.count
        }
    }
}
