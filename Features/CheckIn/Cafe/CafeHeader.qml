pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// The user's café, and the button to change it.
Item {
    id: root

    required property bool hasCafe
    required property string title
    // The distance, or a hint if there is no café.
    required property string subtitle
    // The source of the map data.
    required property string credit
    // "Change" or "Retry"
    required property string action
    required property bool canChange

    signal changeRequested
    signal retryRequested

    implicitHeight: Math.max(texts.implicitHeight, button.implicitHeight)
    objectName: "CafeHeader"

    Column {
        id: texts

        anchors.left: parent.left
        anchors.right: button.visible ? button.left : parent.right
        anchors.rightMargin: button.visible ? 12 : 0
        spacing: 4

        Row {
            spacing: 4
            visible: root.hasCafe

            Symbol {
                anchors.verticalCenter: eyebrow.verticalCenter
                color: Theme.color.accent
                name: "location.fill"
                size: 11
            }

            Eyebrow {
                id: eyebrow

                color: Theme.color.accentDeep
                title: "You're here"
            }

            PlainText {
                anchors.baseline: eyebrow.baseline
                color: Theme.color.textSecondary
                font: Theme.font.caption
                text: root.subtitle
            }
        }

        PlainText {
            Accessible.description: root.credit
            Accessible.role: Accessible.Heading
            elide: Text.ElideRight
            font: Theme.font.cafeName
            maximumLineCount: 2
            text: root.title
            width: parent.width
            wrapMode: Text.Wrap
        }

        Hint {
            text: root.subtitle
            visible: !root.hasCafe
            width: parent.width
        }
    }

    Credit {
        anchors.fill: texts
        credit: root.credit
    }

    GhostButton {
        id: button

        anchors.right: parent.right
        anchors.top: parent.top
        label: root.action
        visible: !root.hasCafe || root.canChange

        onClicked: root.hasCafe ? root.changeRequested() : root.retryRequested()
    }
}
