pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// Shows that work of unknown length is in progress; the text beside it says which. It moves in
// steps, which takes a sixth of the frames of a smooth motion, and stops while it is not visible.
ProgressDots {
    id: root

    property real size: 16
    readonly property bool running: steps.running

    color: Theme.color.textSecondary
    implicitHeight: root.size
    implicitWidth: root.size

    Timer {
        id: steps

        interval: 100
        repeat: true
        running: root.visible && root.Window.visibility !== Window.Hidden
                 && root.Window.visibility !== Window.Minimized

        onTriggered: ++root.step
    }
}
