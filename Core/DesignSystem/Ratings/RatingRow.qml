pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// A question of the rating form with its stars at the end.
Item {
    id: root

    required property string label
    required property int value
    property string hint

    signal edited(int value)

    implicitHeight: Math.max(texts.implicitHeight, stars.implicitHeight)
    implicitWidth: texts.implicitWidth + 12 + stars.implicitWidth

    Column {
        id: texts

        anchors.left: parent.left
        anchors.right: stars.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        spacing: 1

        PlainText {
            Accessible.ignored: true
            elide: Text.ElideRight
            text: root.label
            width: parent.width
        }

        Hint {
            text: root.hint
            visible: root.hint !== ""
            width: parent.width
        }
    }

    RatingStars {
        id: stars

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        label: root.label
        value: root.value

        onEdited: value => root.edited(value)
    }
}
