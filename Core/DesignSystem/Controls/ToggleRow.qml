pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// A text with a switch at its end. A click anywhere in the row requests a change; the owner decides
// and sets `checked`.
Pressable {
    id: root

    property bool checked

    signal toggled(bool checked)

    Accessible.role: Accessible.CheckBox
    Accessible.checkable: true
    Accessible.checked: root.checked
    implicitHeight: 28

    Accessible.onToggleAction: root.press()
    onClicked: root.toggled(!root.checked)

    Rectangle {
        anchors.fill: parent
        color: root.hovered ? Theme.color.hover : "transparent"
        radius: 6
    }

    PlainText {
        Accessible.ignored: true
        anchors.left: parent.left
        anchors.leftMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        text: root.label
    }

    Rectangle {
        id: track

        anchors.right: parent.right
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        color: root.checked ? Theme.color.accent : Theme.color.textTertiary
        height: 18
        radius: 9
        width: 32

        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.color.field
            height: 14
            radius: 7
            width: 14
            x: root.checked ? track.width - width - 2 : 2

            Behavior on x {
                enabled: root.Window.visibility !== Window.Hidden

                NumberAnimation {
                    duration: 130
                    easing.type: Easing.OutCubic
                }
            }
        }
    }
}
