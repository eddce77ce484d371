pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.CheckIn
import Quorvel.DesignSystem

// The field for the password of the open row's network, to store it or to join with it.
Column {
    id: root

    required property WifiScanSection section
    readonly property connectRowState row: root.section.connectRow

    objectName: "ConnectRow"
    spacing: 8

    Hint {
        text: root.row.prompt
        width: parent.width
    }

    TextInputField {
        id: field

        label: "WiFi password"
        masked: !root.row.revealConnectPassword
        placeholder: "WiFi password"
        text: root.row.connectPasswordDraft
        width: parent.width

        onAccepted: root.section.submit()
        onEdited: text => root.section.setConnectPasswordDraft(text)

        SymbolButton {
            label: root.row.revealTitle
            symbol: root.row.revealConnectPassword ? "eye.slash" : "eye"

            onClicked: root.section.toggleRevealConnectPassword()
        }
    }

    PlainText {
        Accessible.role: Accessible.AlertMessage
        color: Theme.color.error
        font: Theme.font.caption
        text: root.row.connectErrorMessage
        visible: text.length > 0
        width: parent.width
        wrapMode: Text.Wrap
    }

    PrimaryButton {
        busy: root.row.connecting
        // It stays while joining, so that the focus stays.
        enabled: root.row.canSubmit || root.row.connecting
        label: root.row.submitTitle
        symbol: ""
        width: parent.width

        onClicked: root.section.submit()
    }

    GhostButton {
        anchors.horizontalCenter: parent.horizontalCenter
        label: "Use password saved on this Mac"

        onClicked: root.section.fillFromSystem(root.row.ssid)
    }
}
