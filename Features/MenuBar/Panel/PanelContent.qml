pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.CheckIn
import Quorvel.MenuBar

// The content for the state of the daily loop: waiting, an error, or the visit.
FocusScope {
    id: root

    required property MenuBarScene scene

    readonly property bool showsVisit: root.scene.screen.kind === MenuBarScreen.Located
                                       && root.scene.located !== null

    readonly property bool showsDenied: root.scene.screen.kind === MenuBarScreen.Denied

    LocatingView {
        anchors.fill: parent
        visible: !root.showsDenied && !root.showsVisit
    }

    // Created on demand. A Loader would refuse a component that is bound to its file.
    Repeater {
        model: root.showsDenied ? 1 : 0

        DeniedView {
            canOpenSettings: root.scene.screen.canOpenSettings
            height: root.height
            lacksSettings: root.scene.lacksSettings
            message: root.scene.screen.errorText
            width: root.width

            onRetryRequested: root.scene.screen.retry()
            onSettingsRequested: root.scene.openSystemSettings()
        }
    }

    Repeater {
        model: root.showsVisit ? 1 : 0

        LocatedView {
            focus: true
            height: root.height
            screen: root.scene.located
            width: root.width
        }
    }
}
