pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem
import Quorvel.MenuBar

// The panel's last rows, about the program and not the visit.
Column {
    id: root

    required property MenuBarScene scene

    signal quitRequested

    bottomPadding: 8
    leftPadding: 8
    rightPadding: 8
    spacing: 4
    topPadding: 8

    ToggleRow {
        checked: root.scene.launchAtLoginEnabled
        label: "Launch at Login"
        width: root.width - 16

        onToggled: checked => root.scene.setLaunchAtLogin(checked)
    }

    RowButton {
        label: "Quit Quorvel"
        width: root.width - 16

        onClicked: root.quitRequested()
    }
}
