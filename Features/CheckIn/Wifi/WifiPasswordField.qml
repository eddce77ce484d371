pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.CheckIn
import Quorvel.DesignSystem

// The Wi-Fi block: the networks nearby, and the password of one of them.
Column {
    id: root

    required property WifiScanSection section
    readonly property bool isLoaded: root.section.scanState === WifiScanSection.Loaded
    readonly property bool isUnavailable: root.section.scanState === WifiScanSection.Unavailable

    objectName: "WifiPasswordField"
    spacing: 8

    WifiBlockHeader {
        count: root.section.headerText
        scanning: root.section.scanState === WifiScanSection.Scanning
        width: root.width
    }

    Hint {
        text: "Pick a network to save its password."
        visible: root.section.showsHint
        width: root.width
    }

    Column {
        visible: root.isLoaded
        width: root.width

        Repeater {
            model: root.section.rows

            WifiNetworkRow {
                section: root.section
                width: root.width
            }
        }

        WifiOtherNetworkRow {
            section: root.section
            width: root.width
        }
    }

    PlainText {
        text: "Không tìm thấy mạng nào quanh đây."
        visible: root.isUnavailable
        width: root.width
        wrapMode: Text.Wrap
    }

    Repeater {
        model: root.isUnavailable ? 1 : 0

        WifiManualEntry {
            section: root.section
            width: root.width
        }
    }
}
