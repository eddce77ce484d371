pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// The window that runs the daily loop step by step.
Window {
    id: root

    color: Theme.color.background
    height: 480
    minimumHeight: 320
    minimumWidth: 420
    objectName: "ProbeWindow"
    // Deliberate: the trailing digit belongs to the name.
    title: "Probe8"
    width: 560
}
