pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.History

// The visits, or the one that is open in their place. Behind it they stay as they are, with the
// focus where it was.
FocusScope {
    id: root

    required property HistoryScreen screen

    signal dismissRequested

    objectName: "HistoryView"

    HistoryOverview {
        id: overview

        anchors.fill: parent
        focus: true
        screen: root.screen
        visible: !root.screen.isVisitOpen

        onDismissRequested: root.dismissRequested()
        onVisibleChanged: if (overview.visible)
            overview.focus = true
    }

    Repeater {
        model: root.screen.openVisits

        VisitDetailView {
            id: visit

            required property VisitDetail modelData

            anchors.fill: root
            detail: modelData

            // Once it is there: the list would keep the focus otherwise.
            Component.onCompleted: visit.focus = true
            onBackRequested: root.screen.closeVisit()
        }
    }
}
