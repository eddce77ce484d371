pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// The end of the form: why the visit cannot be saved, or the result of saving it, and the button.
Column {
    id: root

    // Empty unless something failed.
    required property string error
    // Empty if the user can check in.
    required property string hint
    required property string buttonTitle
    required property string buttonSymbol
    required property bool canCheckIn

    signal checkInRequested

    objectName: "CheckInArea"
    spacing: 8

    PlainText {
        Accessible.role: Accessible.AlertMessage
        color: Theme.color.error
        font: Theme.font.caption
        text: root.error
        visible: text.length > 0
        width: root.width - 2 * root.padding
        wrapMode: Text.Wrap
    }

    Hint {
        text: root.hint
        visible: text.length > 0
        width: root.width - 2 * root.padding
    }

    PrimaryButton {
        enabled: root.canCheckIn
        label: root.buttonTitle
        symbol: root.buttonSymbol
        width: root.width - 2 * root.padding

        onClicked: root.checkInRequested()
    }
}
