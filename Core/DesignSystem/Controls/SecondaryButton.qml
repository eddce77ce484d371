pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// A quiet button with a symbol before its text.
Pressable {
    id: root

    property string symbol
    property font font: Theme.font.captionMedium
    property color symbolColor: Theme.color.textSecondary

    implicitHeight: content.implicitHeight + 10
    implicitWidth: content.implicitWidth + 18
    opacity: root.enabled ? 1 : 0.45

    Rectangle {
        anchors.fill: parent
        border.color: Theme.color.border
        border.width: 1
        color: root.pressed ? Theme.color.hover : "transparent"
        radius: root.cornerRadius
    }

    SymbolLabel {
        id: content

        anchors.centerIn: parent
        busy: root.busy
        color: Theme.color.textSecondary
        font: root.font
        label: root.label
        symbol: root.symbol
        symbolColor: root.symbolColor
        symbolSize: 12
    }
}
