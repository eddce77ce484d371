pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// The user's note.
Rectangle {
    id: root

    required property string text
    readonly property real padding: 13

    color: Theme.color.accentSoft
    implicitHeight: words.implicitHeight + 2 * root.padding
    radius: 9

    PlainText {
        id: words

        anchors.left: parent.left
        anchors.leftMargin: root.padding
        anchors.right: parent.right
        anchors.rightMargin: root.padding
        text: root.text
        wrapMode: Text.Wrap
        y: root.padding
    }
}
