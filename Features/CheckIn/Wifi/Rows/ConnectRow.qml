pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// Where the password of one network is typed, to be kept or to join with.
Column {
    id: root

    // Whose password, and what becomes of it.
    required property string prompt
    required property string draft
    required property bool revealed
    required property bool connecting
    // Empty while nothing went wrong.
    required property string error
    // Whether what is typed may be used.
    required property bool canSubmit
    // "Save & Connect" or "Save"
    required property string submitTitle

    signal draftEdited(string draft)
    signal revealToggled
    signal submitted
    signal systemPasswordRequested

    objectName: "ConnectRow"
    spacing: 8

    Hint {
        text: root.prompt
        width: parent.width
    }

    TextInputField {
        id: field

        label: "WiFi password"
        masked: !root.revealed
        placeholder: "WiFi password"
        text: root.draft
        width: parent.width

        onAccepted: root.submitted()
        onEdited: text => root.draftEdited(text)

        SymbolButton {
            label: root.revealed ? "Hide password" : "Show password"
            symbol: root.revealed ? "eye.slash" : "eye"

            onClicked: root.revealToggled()
        }
    }

    PlainText {
        Accessible.role: Accessible.AlertMessage
        color: Theme.color.error
        font: Theme.font.caption
        text: root.error
        visible: text.length > 0
        width: parent.width
        wrapMode: Text.Wrap
    }

    PrimaryButton {
        busy: root.connecting
        // Kept while joining, so that the focus stays where it is.
        enabled: root.canSubmit || root.connecting
        label: root.submitTitle
        symbol: ""
        width: parent.width

        onClicked: root.submitted()
    }

    GhostButton {
        anchors.horizontalCenter: parent.horizontalCenter
        label: "Use password saved on this Mac"

        onClicked: root.systemPasswordRequested()
    }
}
