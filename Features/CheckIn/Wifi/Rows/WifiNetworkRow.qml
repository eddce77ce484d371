pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.CheckIn

// One network and, while it is open, its password: the one that is kept, or the field for it.
Column {
    id: root

    required property WifiScreen screen
    required property string ssid
    required property string detailText
    required property int bars
    required property bool isOpen
    required property bool isConnected
    required property bool isSaved

    bottomPadding: root.isOpen ? 8 : 0

    WifiNetworkHeader {
        bars: root.bars
        connected: root.isConnected
        detail: root.detailText
        label: root.ssid
        open: root.isOpen
        saved: root.isSaved
        width: root.width

        onClicked: root.screen.toggle(root.ssid)
    }

    Repeater {
        model: root.isOpen && root.isSaved ? 1 : 0

        StoredPasswordRow {
            copySymbol: root.screen.copySymbol
            copyTitle: root.screen.copyTitle
            password: root.screen.storedText
            revealed: root.screen.isStoredRevealed
            // Below the network's name.
            width: root.width - x
            x: 26

            onCopyRequested: root.screen.copyStored()
            onRevealToggled: root.screen.toggleStored()
        }
    }

    Repeater {
        model: root.isOpen && !root.isSaved ? 1 : 0

        WifiConnectRow {
            screen: root.screen
            width: root.width
        }
    }
}
