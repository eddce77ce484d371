pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// Something is under way, for who knows how long; the text beside it says what. It steps instead of
// gliding, which costs a sixth of the frames, and stands still while nobody can see it.
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
