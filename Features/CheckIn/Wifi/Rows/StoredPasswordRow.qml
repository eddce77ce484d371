pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// The password that is kept for a network: hidden until asked for, and a copy of it.
Item {
    id: root

    // As it is shown: bullets, or the password.
    required property string password
    required property bool revealed
    // "Copy", or that it was.
    required property string copyTitle
    required property string copySymbol

    signal revealToggled
    signal copyRequested

    implicitHeight: Math.max(32, text.implicitHeight + 8)
    objectName: "StoredPasswordRow"

    PlainText {
        id: text

        Accessible.name: root.revealed ? root.password : "Password hidden"
        anchors.left: parent.left
        anchors.right: eye.left
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        text: root.password
        // What is revealed is there to be read off, to its end.
        wrapMode: Text.WrapAnywhere
    }

    SymbolButton {
        id: eye

        anchors.right: copy.left
        anchors.rightMargin: 4
        anchors.verticalCenter: parent.verticalCenter
        label: root.revealed ? "Hide password" : "Show password"
        symbol: root.revealed ? "eye.slash" : "eye"

        onClicked: root.revealToggled()
    }

    SecondaryButton {
        id: copy

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        label: root.copyTitle
        symbol: root.copySymbol

        onClicked: root.copyRequested()
    }
}
