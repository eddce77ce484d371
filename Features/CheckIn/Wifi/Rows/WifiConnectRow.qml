pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.CheckIn

// The field for the password of whichever network is open.
ConnectRow {
    id: root

    required property WifiScreen screen

    canSubmit: root.screen.canSubmit
    connecting: root.screen.isConnecting
    draft: root.screen.password
    error: root.screen.errorText
    prompt: root.screen.prompt
    revealed: root.screen.isPasswordRevealed
    submitTitle: root.screen.submitTitle

    onDraftEdited: draft => root.screen.password = draft
    onRevealToggled: root.screen.togglePassword()
    onSubmitted: root.screen.submit()
    onSystemPasswordRequested: root.screen.fillFromSystem()
}
