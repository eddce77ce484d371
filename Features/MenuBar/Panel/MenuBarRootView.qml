pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem
import Quorvel.MenuBar

// The panel under the status item: header, content for the current state, footer.
FocusScope {
    id: root

    required property MenuBarScene scene
    // The height that the screen leaves.
    property real maximumHeight: 2000
    readonly property real contentHeight: 540
    readonly property real frameHeight: header.height + footer.height + 2

    signal windowRequested(string identifier)
    signal quitRequested
    signal dismissRequested

    Accessible.role: Accessible.Pane
    Accessible.name: "Quorvel"
    focus: true
    implicitHeight: Math.min(root.frameHeight + root.contentHeight, root.maximumHeight)
    implicitWidth: 340
    objectName: "MenuBarRootView"

    Keys.onEscapePressed: root.dismissRequested()

    // Square, with a border: without a compositor, other shapes leave black corners.
    Rectangle {
        anchors.fill: parent
        border.color: Theme.color.borderStrong
        border.width: 1
        color: Theme.color.background
    }

    Column {
        id: column

        width: parent.width

        PanelHeader {
            id: header

            width: parent.width

            onHistoryRequested: root.windowRequested("history")
        }

        ThemeDivider {
        }

        // The same height in every state, so that nothing moves under the pointer.
        PanelContent {
            height: root.height - root.frameHeight
            scene: root.scene
            width: parent.width
        }

        ThemeDivider {
        }

        PanelFooter {
            id: footer

            scene: root.scene
            width: parent.width

            onQuitRequested: root.quitRequested()
        }
    }
}
