pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.CheckIn

// One network and, while it is open, its stored password or the field for it.
Column {
    id: root

    required property WifiScanSection section
    required property string ssid
    required property string detailText
    required property int bars
    required property bool isOpen
    required property bool isConnected
    required property bool isSaved
    required property string description

    bottomPadding: root.isOpen ? 8 : 0

    WifiNetworkHeader {
        bars: root.bars
        connected: root.isConnected
        description: root.description
        detail: root.detailText
        label: root.ssid
        open: root.isOpen
        saved: root.isSaved
        width: root.width

        onClicked: root.section.toggle(root.ssid)
    }

    Repeater {
        model: root.isOpen && root.isSaved ? 1 : 0

        StoredPasswordRow {
            section: root.section
            ssid: root.ssid
            // Aligned with the network's name.
            width: root.width - x
            x: 26
        }
    }

    Repeater {
        model: root.isOpen && !root.isSaved ? 1 : 0

        ConnectRow {
            section: root.section
            width: root.width
        }
    }
}
