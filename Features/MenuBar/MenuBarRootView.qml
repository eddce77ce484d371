pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem
import Quorvel.MenuBar

// The panel under the status item: header, what the state of the day calls for, footer.
FocusScope {
    id: root

    required property LaunchAtLoginToggle launchAtLogin

    signal windowRequested(string identifier)
    signal quitRequested
    signal dismissRequested

    Accessible.role: Accessible.Pane
    Accessible.name: "Quorvel"
    focus: true
    implicitHeight: column.implicitHeight
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
            width: parent.width

            onHistoryRequested: root.windowRequested("history")
        }

        ThemeDivider {
        }

        Item {
            id: content

            implicitHeight: 110
            width: parent.width
        }

        ThemeDivider {
        }

        PanelFooter {
            launchAtLogin: root.launchAtLogin
            width: parent.width

            onQuitRequested: root.quitRequested()
        }
    }
}
