pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem
import Quorvel.History

// The window of all visits. Each showing reads them anew.
Window {
    id: root

    required property HistoryScreen screen

    color: Theme.color.background
    height: 640
    minimumHeight: 360
    minimumWidth: 480
    objectName: "HistoryWindow"
    title: "Check-ins — Quorvel"
    width: 600

    // What was open is not kept: a card may hold the way into somebody's Wi-Fi.
    onVisibleChanged: root.visible ? root.screen.appear() : root.screen.closeVisit()

    HistoryView {
        anchors.fill: parent
        focus: true
        screen: root.screen

        onDismissRequested: root.close()
    }
}
