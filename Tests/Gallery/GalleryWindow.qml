pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// The states on the left, the chosen one on the right. Up and Down choose, D switches to dark.
FocusScope {
    id: root

    required property QtObject gallery
    property int current
    property bool dark

    function choose(index: int) {
        root.current = Math.max(0, Math.min(root.gallery.names.length - 1, index));
        list.reveal(names.itemAt(root.current));
    }

    function showCurrent() {
        root.gallery.show(root.current, stage);
    }

    focus: true
    implicitHeight: 720
    implicitWidth: 680

    // Later, since there is no window yet when this is created.
    Component.onCompleted: Qt.callLater(root.showCurrent)
    Keys.onDownPressed: root.choose(root.current + 1)
    Keys.onPressed: event => {
        if (event.key === Qt.Key_D)
            root.dark = !root.dark;
    }
    Keys.onUpPressed: root.choose(root.current - 1)
    onCurrentChanged: Qt.callLater(root.showCurrent)
    onDarkChanged: root.gallery.setDark(root.dark)

    Rectangle {
        anchors.fill: parent
        color: Theme.color.card
    }

    ToggleRow {
        id: darkToggle

        anchors.left: parent.left
        anchors.margins: 8
        anchors.top: parent.top
        checked: root.dark
        label: "Dark"
        width: 272

        onToggled: checked => root.dark = checked
    }

    ScrollArea {
        id: list

        Accessible.name: "States"
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.margins: 8
        anchors.top: darkToggle.bottom
        width: 272

        Column {
            width: list.width

            Repeater {
                id: names

                model: root.gallery.names

                RowButton {
                    id: row

                    required property int index
                    required property string modelData

                    activeFocusOnTab: false
                    label: row.modelData
                    width: list.width

                    onClicked: root.choose(row.index)

                    Rectangle {
                        anchors.fill: parent
                        color: Theme.color.accentSoft
                        radius: 6
                        visible: row.index === root.current
                    }
                }
            }
        }
    }

    ScrollArea {
        Accessible.name: "The state"
        anchors.bottom: parent.bottom
        anchors.left: list.right
        anchors.margins: 16
        anchors.right: parent.right
        anchors.top: parent.top

        Rectangle {
            id: stage

            color: Theme.color.background
        }
    }
}
