pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// The main button of a view.
Pressable {
    id: root

    property string symbol
    // Darker than the accent: white text on the accent has too little contrast.
    property color fill: Qt.darker(Theme.color.accentDeep, 1.3)

    cornerRadius: 8
    implicitHeight: 36
    implicitWidth: content.implicitWidth + 32

    Rectangle {
        anchors.fill: parent
        color: root.enabled ? root.fill : Theme.color.border
        radius: root.cornerRadius
    }

    Rectangle {
        anchors.fill: parent
        color: root.pressed ? Theme.color.borderStrong : Theme.color.hover
        radius: root.cornerRadius
        visible: root.pressed || root.hovered
    }

    SymbolLabel {
        id: content

        anchors.centerIn: parent
        busy: root.busy
        color: root.enabled ? "white" : Theme.color.textSecondary
        font: Theme.font.button
        label: root.label
        symbol: root.symbol
    }
}
