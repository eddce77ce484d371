pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// The window of all visits.
Window {
    id: root

    color: Theme.color.background
    height: 640
    minimumHeight: 360
    minimumWidth: 420
    objectName: "HistoryWindow"
    title: "Check-ins — Quorvel"
    width: 520

    Rectangle {
        id: toolbar

        color: Theme.color.surface
        height: 52
        width: parent.width

        Rectangle {
            anchors.bottom: parent.bottom
            color: Theme.color.border
            height: 1
            width: parent.width
        }
    }
}
