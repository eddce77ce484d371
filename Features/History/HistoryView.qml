pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.History

// The list of visits, or the open visit in its place. Behind an open visit the list keeps its
// position and its focus.
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

            // After it is created; otherwise the list would keep the focus.
            Component.onCompleted: visit.focus = true
            onBackRequested: root.screen.closeVisit()
        }
    }
}
