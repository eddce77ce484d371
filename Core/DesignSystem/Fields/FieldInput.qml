pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// The line being typed in a TextInputField. The echo mode already tells assistive tools that this
// is a password. Deliberate: setting passwordEdit as well would remove its accessible name.
TextInput {
    id: root

    required property string label
    required property bool masked
    property alias typed: root.text

    Accessible.role: Accessible.EditableText
    Accessible.name: root.label
    Accessible.editable: true
    Accessible.focusable: root.enabled
    activeFocusOnTab: root.enabled
    clip: true
    color: Theme.color.textPrimary
    echoMode: root.masked ? TextInput.Password : TextInput.Normal
    focus: true
    font: Theme.font.body
    passwordCharacter: "•"
    selectByMouse: true
    selectedTextColor: Theme.color.textPrimary
    selectionColor: Theme.color.starOff
}
