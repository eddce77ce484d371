pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// The closed row of a network: its name, its strength and its tags. Pressing it opens the row.
Pressable {
    id: root

    required property string detail
    // The whole row, for a screen reader.
    required property string description
    // No bars for 0.
    required property int bars
    required property bool open
    required property bool connected
    required property bool saved

    Accessible.description: root.description
    Accessible.role: Accessible.RadioButton
    Accessible.checkable: true
    Accessible.checked: root.open
    implicitHeight: 44

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: -8
        anchors.rightMargin: -8
        color: root.hovered ? Theme.color.hover : "transparent"
        radius: 6
    }

    Symbol {
        id: radio

        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        color: root.open ? Theme.color.accent : Theme.color.textTertiary
        name: root.open ? "largecircle.fill.circle" : "circle"
        size: 16
    }

    Column {
        anchors.left: radio.right
        anchors.leftMargin: 10
        anchors.right: signalBars.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2

        Row {
            id: title

            readonly property real tagsWidth: (root.connected ? connectedTag.width + spacing : 0)
                                              + (root.saved ? savedTag.width + spacing : 0)

            spacing: 6
            width: parent.width

            PlainText {
                id: name

                Accessible.ignored: true
                elide: Text.ElideRight
                text: root.label
                width: Math.min(implicitWidth, title.width - title.tagsWidth)
            }

            Tag {
                id: connectedTag

                anchors.verticalCenter: name.verticalCenter
                kind: Tag.Kind.Connected
                title: "CONNECTED"
                visible: root.connected
            }

            Tag {
                id: savedTag

                anchors.verticalCenter: name.verticalCenter
                kind: Tag.Kind.Saved
                title: "SAVED"
                visible: root.saved
            }
        }

        PlainText {
            Accessible.ignored: true
            color: Theme.color.textSecondary
            elide: Text.ElideRight
            font: Theme.font.caption
            text: root.detail
            visible: text.length > 0
            width: parent.width
        }
    }

    SignalBarsView {
        id: signalBars

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        bars: root.bars
        heights: [6, 10, 14]
        size: 14
        visible: root.bars > 0
    }
}
