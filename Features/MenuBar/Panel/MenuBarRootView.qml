pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem
import Quorvel.MenuBar

// The panel under the status item: header, what the state of the day calls for, footer.
FocusScope {
    id: root

    required property MenuBarScene scene
    // What the screen has room for.
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

    // Square and with a line around it: without a compositor anything else leaves black corners.
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

        // As high in every state: nothing moves under the pointer when one gives way to another.
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
