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

    onVisibleChanged: if (root.visible)
        root.screen.appear()

    HistoryView {
        anchors.fill: parent
        screen: root.screen

        onDismissRequested: root.close()
    }
}
