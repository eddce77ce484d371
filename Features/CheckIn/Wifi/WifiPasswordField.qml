pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.CheckIn
import Quorvel.DesignSystem

// The Wi-Fi block: the networks nearby, and what to do with the password of one.
Column {
    id: root

    required property WifiScreen screen
    readonly property bool isLoaded: root.screen.state === WifiScreen.Loaded
    readonly property bool isUnavailable: root.screen.state === WifiScreen.Unavailable

    objectName: "WifiPasswordField"
    spacing: 8

    WifiBlockHeader {
        count: root.screen.headerText
        scanning: root.screen.state === WifiScreen.Scanning
        width: root.width
    }

    Hint {
        text: "Pick a network to save its password."
        visible: root.screen.showsHint
        width: root.width
    }

    Column {
        visible: root.isLoaded
        width: root.width

        Repeater {
            model: root.screen.rows

            WifiNetworkRow {
                screen: root.screen
                width: root.width
            }
        }

        WifiOtherNetworkRow {
            screen: root.screen
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
            screen: root.screen
            width: root.width
        }
    }
}
