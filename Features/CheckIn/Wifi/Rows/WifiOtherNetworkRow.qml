pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.CheckIn

// The last row: for a network that is not in the list.
Column {
    id: root

    required property WifiScreen screen

    bottomPadding: root.screen.isOtherOpen ? 8 : 0

    WifiNetworkHeader {
        bars: 0
        connected: false
        detail: ""
        label: "Other network…"
        open: root.screen.isOtherOpen
        saved: false
        width: root.width

        onClicked: root.screen.toggleOther()
    }

    Repeater {
        model: root.screen.isOtherOpen ? 1 : 0

        WifiManualEntry {
            screen: root.screen
            width: root.width
        }
    }
}
