pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.CheckIn
import Quorvel.DesignSystem

// The cafés nearby, for when the nearest is not the one.
FocusScope {
    id: root

    required property QtObject candidates

    signal selected(int row)
    signal cancelled

    objectName: "CafePickerView"

    Keys.onEscapePressed: root.cancelled()

    PlainText {
        Accessible.role: Accessible.Heading
        anchors.left: parent.left
        anchors.verticalCenter: cancel.verticalCenter
        font: Theme.font.title
        text: "Choose a café"
    }

    GhostButton {
        id: cancel

        anchors.right: parent.right
        anchors.top: parent.top
        label: "Cancel"

        onClicked: root.cancelled()
    }

    ScrollArea {
        id: list

        Accessible.name: "Cafés nearby"
        Accessible.role: Accessible.List
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.leftMargin: -8
        anchors.right: parent.right
        anchors.rightMargin: -8
        anchors.top: cancel.bottom
        anchors.topMargin: 12

        Column {
            width: list.width
            x: 8

            Repeater {
                model: root.candidates

                CafePickerRow {
                    required property string name
                    required property string distanceText
                    required property int index

                    distance: distanceText
                    label: name
                    width: list.width - 16

                    onClicked: root.selected(index)
                }
            }
        }
    }
}
