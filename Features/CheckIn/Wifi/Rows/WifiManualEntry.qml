pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.CheckIn
import Quorvel.DesignSystem

// The name of a network that is not in the list.
Column {
    id: root

    required property WifiScanSection section

    spacing: 8

    TextInputField {
        label: "Network name (SSID)"
        placeholder: "Network name (SSID)"
        text: root.section.manualSSIDDraft
        width: root.width

        onEdited: text => root.section.setManualSSIDDraft(text)
    }

    ConnectRow {
        section: root.section
        width: root.width
    }
}
