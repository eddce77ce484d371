pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import Quorvel.History

// The visits under their days. Rows are made as they come into sight.
ListView {
    id: root

    required property QtObject rows
    required property list<string> ratingLabels

    Accessible.name: "Visits"
    Accessible.role: Accessible.List
    activeFocusOnTab: true
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    model: root.rows

    ScrollBar.vertical: ScrollBar {
    }
    delegate: Column {
        id: row

        required property bool isHeader
        required property string title
        required property string moment
        required property string note
        required property bool hasWeather
        required property int weatherCode
        required property bool isDay
        required property list<int> scores

        width: root.width

        HistorySectionHeader {
            title: row.title
            visible: row.isHeader
            width: parent.width
        }

        Repeater {
            model: row.isHeader ? 0 : 1

            HistoryRow {
                hasWeather: row.hasWeather
                isDay: row.isDay
                moment: row.moment
                note: row.note
                ratingLabels: root.ratingLabels
                scores: row.scores
                title: row.title
                weatherCode: row.weatherCode
                width: row.width
            }
        }
    }
}
