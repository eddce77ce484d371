pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.CheckIn
import Quorvel.DesignSystem

// The stored password of the open row's network: hidden until the user reveals it, and a button to
// copy it.
Item {
    id: root

    required property WifiScanSection section
    required property string ssid
    readonly property storedRowState row: root.section.storedRow

    implicitHeight: Math.max(32, text.implicitHeight + 8)
    objectName: "StoredPasswordRow"

    PlainText {
        id: text

        Accessible.name: root.row.spokenText
        anchors.left: parent.left
        anchors.right: eye.left
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        text: root.row.text
        // A revealed password must be readable to its end.
        wrapMode: Text.WrapAnywhere
    }

    SymbolButton {
        id: eye

        anchors.right: copy.left
        anchors.rightMargin: 4
        anchors.verticalCenter: parent.verticalCenter
        label: root.row.revealTitle
        symbol: root.row.isRevealed ? "eye.slash" : "eye"

        onClicked: root.section.toggleRevealStoredPassword(root.ssid)
    }

    SecondaryButton {
        id: copy

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        label: root.row.copyTitle
        symbol: root.row.copiedScanned ? "checkmark" : "doc.on.doc"

        onClicked: root.section.copyStoredPassword(root.ssid)
    }
}
