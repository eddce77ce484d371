pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// Steam that rises gently, at twelve frames a second. It stops while it is not visible.
SteamWisps {
    id: root

    readonly property bool running: rise.running
    readonly property real periodMilliseconds: 2880

    color: Theme.color.textTertiary

    Timer {
        id: rise

        interval: 80
        repeat: true
        running: root.visible && root.Window.visibility !== Window.Hidden
                 && root.Window.visibility !== Window.Minimized

        onTriggered: root.phase += rise.interval / root.periodMilliseconds
    }
}
