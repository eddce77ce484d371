pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem
import Quorvel.History

// The window of all visits. It reads them again whenever it is shown.
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

    // An open visit is closed: its card may hold a Wi-Fi password.
    onVisibleChanged: root.visible ? root.screen.appear() : root.screen.closeVisit()

    HistoryView {
        anchors.fill: parent
        focus: true
        screen: root.screen

        onDismissRequested: root.close()
    }
}
