pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// The cup with its steam, the logo of the program.
Item {
    id: root

    property real size: 16
    property color color: Theme.color.accent

    implicitHeight: root.size
    implicitWidth: root.size

    SteamView {
        color: root.color
        height: root.size * 0.4
        width: root.size * 0.52
        x: root.size * 0.12
    }

    Symbol {
        anchors.bottom: parent.bottom
        anchors.horizontalCenter: parent.horizontalCenter
        color: root.color
        name: "cup.and.saucer.fill"
        size: root.size * 0.78
    }
}
