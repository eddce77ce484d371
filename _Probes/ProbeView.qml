pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.Probes

// The diagnostics: the daily loop on top, then the actions, then the log.
FocusScope {
    id: root

    required property ProbeViewModel probe
    readonly property real margin: 16

    signal dismissRequested

    objectName: "ProbeView"

    Keys.onEscapePressed: root.dismissRequested()

    DailyLoopPanel {
        id: panel

        anchors.left: parent.left
        anchors.margins: root.margin
        anchors.right: parent.right
        anchors.top: parent.top
        focus: true
        loop: root.probe.loop
    }

    ProbeActions {
        id: actions

        anchors.left: parent.left
        anchors.margins: root.margin
        anchors.right: parent.right
        anchors.top: panel.bottom
        probe: root.probe
    }

    ProbeLog {
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.margins: root.margin
        anchors.right: parent.right
        anchors.top: actions.bottom
        lines: root.probe.log
    }
}
