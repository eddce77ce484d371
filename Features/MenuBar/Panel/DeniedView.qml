pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// Why there is nothing to show, and what the user can do about it.
Item {
    id: root

    required property string message
    required property bool canOpenSettings
    // Whether the settings cannot be opened from here.
    required property bool lacksSettings

    signal settingsRequested
    signal retryRequested

    implicitHeight: column.implicitHeight + 2 * 24
    objectName: "DeniedView"

    Column {
        id: column

        anchors.centerIn: parent
        spacing: 12
        width: parent.width - 2 * 24

        PlainText {
            color: Theme.color.error
            horizontalAlignment: Text.AlignHCenter
            text: root.message
            width: parent.width
            wrapMode: Text.Wrap
        }

        Column {
            anchors.horizontalCenter: parent.horizontalCenter
            padding: 16
            spacing: 8

            PrimaryButton {
                label: "Open System Settings"
                symbol: ""
                visible: root.canOpenSettings
                width: 220

                onClicked: root.settingsRequested()
            }

            SecondaryButton {
                cornerRadius: 8
                font: Theme.font.button
                implicitHeight: 36
                label: "Retry"
                symbol: "arrow.clockwise"
                width: 220

                onClicked: root.retryRequested()
            }
        }

        Hint {
            horizontalAlignment: Text.AlignHCenter
            text: "No settings program was found here. Please allow location for Quorvel in "
                  + "your desktop's settings."
            visible: root.lacksSettings
            width: parent.width
        }
    }
}
