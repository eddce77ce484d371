pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// The states at the left, the one that is chosen at the right. Up and down choose, D is for dark.
Rectangle {
    id: root

    required property QtObject gallery
    property bool dark

    color: Theme.color.card
    implicitHeight: 720
    implicitWidth: 720

    Component.onCompleted: states.showCurrent()
    Keys.onPressed: event => {
        if (event.key === Qt.Key_D)
            root.dark = !root.dark;
    }
    onDarkChanged: root.gallery.setDark(root.dark)

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

    ListView {
        id: states

        function showCurrent() {
            root.gallery.show(states.currentIndex, stage);
        }

        Accessible.name: "States"
        Accessible.role: Accessible.List
        activeFocusOnTab: true
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.margins: 8
        anchors.top: darkToggle.bottom
        clip: true
        focus: true
        highlightMoveDuration: 0
        model: root.gallery.names
        width: 272

        delegate: RowButton {
            required property int index
            required property string modelData

            activeFocusOnTab: false
            label: modelData
            width: states.width

            onClicked: states.currentIndex = index
        }
        highlight: Rectangle {
            border.color: Theme.color.accent
            border.width: states.activeFocus ? 2 : 0
            color: Theme.color.accentSoft
            radius: 6
        }

        onCurrentIndexChanged: states.showCurrent()
    }

    ScrollArea {
        Accessible.name: "The state"
        anchors.bottom: parent.bottom
        anchors.left: states.right
        anchors.margins: 16
        anchors.right: parent.right
        anchors.top: parent.top

        Rectangle {
            id: stage

            color: Theme.color.background
        }
    }
}
