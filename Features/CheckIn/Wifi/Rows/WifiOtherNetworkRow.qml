pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.CheckIn

// The last row, for a network that is not in the list.
Column {
    id: root

    required property WifiScanSection section

    bottomPadding: root.section.isOtherOpen ? 8 : 0

    WifiNetworkHeader {
        bars: 0
        connected: false
        description: ""
        detail: ""
        label: "Other network…"
        open: root.section.isOtherOpen
        saved: false
        width: root.width

        onClicked: root.section.toggleOther()
    }

    Repeater {
        model: root.section.isOtherOpen ? 1 : 0

        WifiManualEntry {
            section: root.section
            width: root.width
        }
    }
}
