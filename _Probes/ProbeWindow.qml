pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem
import Quorvel.Probes

// The window that runs the daily loop step by step, and asks the services by hand. What is under
// way when it closes goes on, and is in the log when it opens again.
Window {
    id: root

    required property ProbeViewModel probe

    color: Theme.color.background
    height: 560
    minimumHeight: 400
    minimumWidth: 420
    objectName: "ProbeWindow"
    // Deliberate: the trailing digit belongs to the name.
    title: "Probe8"
    width: 560

    ProbeView {
        anchors.fill: parent
        focus: true
        probe: root.probe

        onDismissRequested: root.close()
    }
}
