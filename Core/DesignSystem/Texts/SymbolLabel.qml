pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// The content of a button: a symbol and a text. While busy, a progress indicator replaces the
// symbol.
Row {
    id: root

    required property string label
    required property string symbol
    required property color color
    property color symbolColor: root.color
    required property font font
    property bool busy
    property real symbolSize: 14

    spacing: 6

    ProgressIndicator {
        anchors.verticalCenter: parent.verticalCenter
        color: root.color
        size: root.symbolSize
        visible: root.busy
    }

    Symbol {
        anchors.verticalCenter: parent.verticalCenter
        color: root.symbolColor
        name: root.symbol
        size: root.symbolSize
        visible: root.symbol !== "" && !root.busy
    }

    PlainText {
        Accessible.ignored: true
        anchors.verticalCenter: parent.verticalCenter
        color: root.color
        font: root.font
        text: root.label
    }
}
