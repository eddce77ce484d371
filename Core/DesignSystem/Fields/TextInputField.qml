pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// A field for one line of text. It shows `text` and reports each edit; the owner keeps the text.
// Child items stand at its end, such as the eye beside a password.
FocusScope {
    id: root

    required property string label
    property string text
    property string placeholder
    property bool masked
    default property alias trailing: end.data

    signal edited(string text)
    signal accepted

    implicitHeight: 32
    implicitWidth: 200
    opacity: root.enabled ? 1 : 0.45

    InputFrame {
        field: root
    }

    FieldInput {
        id: input

        // Assistive tools read the property of this name, and get what the screen shows.
        readonly property string text: input.displayText

        anchors.left: parent.left
        anchors.leftMargin: 10
        anchors.right: end.left
        anchors.rightMargin: 6
        anchors.verticalCenter: parent.verticalCenter
        label: root.label
        masked: root.masked
        typed: root.text

        onAccepted: root.accepted()
        onTextEdited: root.edited(input.typed)
    }

    PlainText {
        Accessible.ignored: true
        anchors.fill: input
        color: Theme.color.textTertiary
        elide: Text.ElideRight
        text: root.placeholder
        visible: input.typed === "" && input.preeditText === ""
    }

    Row {
        id: end

        anchors.right: parent.right
        anchors.rightMargin: 4
        anchors.verticalCenter: parent.verticalCenter
    }
}
