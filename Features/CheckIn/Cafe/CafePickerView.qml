pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.CheckIn
import Quorvel.DesignSystem

// The cafés nearby, to choose another one than the nearest.
FocusScope {
    id: root

    required property QtObject candidates
    // The source of the map data.
    required property string credit

    readonly property real margin: 16

    signal selected(int row)
    signal cancelled

    objectName: "CafePickerView"

    Keys.onEscapePressed: root.cancelled()

    PlainText {
        id: title

        Accessible.description: root.credit
        Accessible.role: Accessible.Heading
        anchors.left: parent.left
        anchors.leftMargin: root.margin
        anchors.verticalCenter: cancel.verticalCenter
        font: Theme.font.title
        text: "Choose a café"
    }

    Credit {
        anchors.fill: title
        credit: root.credit
    }

    GhostButton {
        id: cancel

        anchors.right: parent.right
        anchors.rightMargin: root.margin
        anchors.top: parent.top
        anchors.topMargin: root.margin
        label: "Cancel"

        onClicked: root.cancelled()
    }

    ScrollArea {
        id: list

        Accessible.name: "Cafés nearby"
        Accessible.role: Accessible.List
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: cancel.bottom
        anchors.topMargin: 8
        contentHeight: rows.height

        Column {
            id: rows

            bottomPadding: 12
            // Room for the focus ring around the first row.
            topPadding: 4
            width: list.width - 2 * root.margin
            x: root.margin

            Repeater {
                model: root.candidates

                CafePickerRow {
                    required property string name
                    required property string distanceText
                    required property int index

                    distance: distanceText
                    label: name
                    width: rows.width

                    onClicked: root.selected(index)
                }
            }
        }
    }
}
