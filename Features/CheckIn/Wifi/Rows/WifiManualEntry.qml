pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.CheckIn
import Quorvel.DesignSystem

// A network that is not in the list, by its name.
Column {
    id: root

    required property WifiScreen screen

    spacing: 8

    TextInputField {
        label: "Network name (SSID)"
        placeholder: "Network name (SSID)"
        text: root.screen.networkName
        width: root.width

        onEdited: text => root.screen.networkName = text
    }

    WifiConnectRow {
        screen: root.screen
        width: root.width
    }
}
