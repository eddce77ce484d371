pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// The address with the coordinates below it. Either may be empty.
Card {
    id: root

    required property string address
    required property string coordinates

    padding: 11

    Symbol {
        id: pin

        color: Theme.color.accent
        name: "location.fill"
        size: 14
        y: 1
    }

    Column {
        anchors.left: pin.right
        anchors.leftMargin: 9
        spacing: 3
        width: parent.width - x

        PlainText {
            text: root.address
            visible: text !== ""
            width: parent.width
            wrapMode: Text.Wrap
        }

        PlainText {
            color: Theme.color.textSecondary
            text: root.coordinates
            visible: text !== ""
            width: parent.width
            wrapMode: Text.Wrap
        }
    }
}
