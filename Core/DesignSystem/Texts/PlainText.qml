pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// The base of every text on screen. It is always plain: a network's name must never be read as
// markup.
Text {
    id: root

    Accessible.role: Accessible.StaticText
    Accessible.name: root.text
    color: Theme.color.textPrimary
    font: Theme.font.body
    textFormat: Text.PlainText
}
