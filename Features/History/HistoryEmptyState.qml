pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// Shown before the first visit.
Column {
    id: root

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
        text: "No check-ins yet"
    }

    Hint {
        anchors.horizontalCenter: parent.horizontalCenter
        horizontalAlignment: Text.AlignHCenter
        text: "Check in at a café from the menu bar to start your history."
        width: root.width - 2 * root.padding
    }
}
