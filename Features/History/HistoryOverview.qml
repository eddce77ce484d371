pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem
import Quorvel.History

// The header with the week's summary, and all visits, newest first.
FocusScope {
    id: root

    required property HistoryScreen screen

    signal dismissRequested

    HistoryHeader {
        id: header

        summary: root.screen.summaryText
        width: parent.width

        onCheckInRequested: root.dismissRequested()
    }

    ProgressIndicator {
        anchors.centerIn: content
        size: 24
        visible: root.screen.kind === HistoryScreen.Waiting
    }

    PlainText {
        anchors.centerIn: content
        color: Theme.color.error
        horizontalAlignment: Text.AlignHCenter
        text: root.screen.errorText
        visible: root.screen.kind === HistoryScreen.Failed
        width: content.width
        wrapMode: Text.Wrap
    }

    HistoryEmptyState {
        anchors.centerIn: content
        visible: root.screen.kind === HistoryScreen.Empty
        width: content.width
    }

    Item {
        id: content

        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.margins: 16
        anchors.right: parent.right
        anchors.top: header.bottom
    }

    HistoryList {
        id: list

        anchors.fill: content
        anchors.rightMargin: -list.margin
        focus: true
        screen: root.screen
        visible: root.screen.kind === HistoryScreen.List
    }
}
