pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// Every form control once, in each state that looks different.
Column {
    id: root

    spacing: 12
    width: 308

    PrimaryButton {
        label: "Check In"
        objectName: "primaryButton"
        symbol: "clock"
        width: root.width
    }

    Row {
        spacing: 12

        PrimaryButton {
            busy: true
            label: "Connecting"
            objectName: "busyButton"
        }

        PrimaryButton {
            enabled: false
            label: "Save"
            objectName: "disabledButton"
        }
    }

    Row {
        spacing: 12

        SecondaryButton {
            label: "Copy"
            objectName: "secondaryButton"
            symbol: "clock"
        }

        ProgressIndicator {
            objectName: "progress"
            size: 16
        }
    }

    TextInputField {
        label: "WiFi password"
        objectName: "textField"
        placeholder: "Type it here"
        width: root.width

        onEdited: text => this.text = text

        SymbolButton {
            label: "Show password"
            objectName: "eye"
            symbol: "clock"
        }
    }

    TextInputField {
        label: "Saved password"
        masked: true
        objectName: "maskedField"
        text: "cafe1234"
        width: root.width
    }

    NoteField {
        label: "Note"
        objectName: "noteField"
        placeholder: "How's this spot today?"
        width: root.width

        onEdited: text => this.text = text
    }

    Row {
        spacing: 6

        Tag {
            kind: Tag.Kind.Connected
            objectName: "connectedTag"
            title: "CONNECTED"
        }

        Tag {
            kind: Tag.Kind.Saved
            objectName: "savedTag"
            title: "SAVED"
        }
    }

    Card {
        objectName: "card"
        width: root.width

        Hint {
            objectName: "hint"
            text: "A sentence that is longer than its card is wide goes on in the next line."
            width: parent.width
        }
    }
}
