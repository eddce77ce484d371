pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// A text that can be selected and copied.
TextEdit {
    id: root

    Accessible.role: Accessible.StaticText
    Accessible.name: root.text
    activeFocusOnTab: false
    color: Theme.color.textPrimary
    font: Theme.font.caption
    readOnly: true
    selectByMouse: true
    selectedTextColor: Theme.color.textPrimary
    selectionColor: Theme.color.starOff
    textFormat: TextEdit.PlainText
    wrapMode: TextEdit.Wrap
}
