pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// The panel's first row: the program's name, and the button to the visits.
Item {
    id: root

    signal historyRequested

    implicitHeight: history.height + 2 * 12

    Symbol {
        id: cup

        anchors.left: parent.left
        anchors.leftMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.color.accent
        name: "cup.and.saucer.fill"
        size: 18
    }

    PlainText {
        anchors.left: cup.right
        anchors.leftMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        font: Theme.font.title
        text: "Quorvel"
    }

    SymbolButton {
        id: history

        anchors.right: parent.right
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        label: "Check-ins"
        symbol: "clock"

        onClicked: root.historyRequested()
    }
}
