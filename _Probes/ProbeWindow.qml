pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem
import Quorvel.Probes

// The window that runs the daily loop step by step and asks each service. Work continues after the
// window closes, and its log is there when the window opens again.
Window {
    id: root

    required property ProbeViewModel probe

    color: Theme.color.background
    height: 560
    minimumHeight: 400
    minimumWidth: 420
    objectName: "ProbeWindow"
    // Deliberate: the trailing digit is part of the name.
    title: "Probe8"
    width: 560

    ProbeView {
        anchors.fill: parent
        focus: true
        probe: root.probe

        onDismissRequested: root.close()
    }
}
