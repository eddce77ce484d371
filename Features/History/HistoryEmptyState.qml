pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// Before the first visit.
Column {
    id: root

    required property string title
    required property string hint

    padding: 24
    spacing: 8

    Symbol {
        anchors.horizontalCenter: parent.horizontalCenter
        color: Theme.color.textTertiary
        name: "cup.and.saucer"
        size: 32
    }

    PlainText {
        anchors.horizontalCenter: parent.horizontalCenter
        text: root.title
    }

    Hint {
        anchors.horizontalCenter: parent.horizontalCenter
        horizontalAlignment: Text.AlignHCenter
        text: root.hint
        width: root.width - 2 * root.padding
    }
}
