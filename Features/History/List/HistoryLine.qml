pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.History

// One line of the list: a day or a visit. Only a visit has a row.
FocusScope {
    id: root

    required property int index
    required property bool isHeader
    required property string title
    required property string moment
    required property string note
    required property bool hasWeather
    required property int weatherCode
    required property bool isDay
    required property list<int> scores
    required property list<string> ratingLabels

    signal opened

    implicitHeight: content.height

    Column {
        id: content

        width: parent.width

        HistorySectionHeader {
            title: root.title
            visible: root.isHeader
            width: parent.width
        }

        Repeater {
            model: root.isHeader ? 0 : 1

            HistoryRow {
                focus: true
                hasWeather: root.hasWeather
                isDay: root.isDay
                label: root.title
                moment: root.moment
                note: root.note
                ratingLabels: root.ratingLabels
                scores: root.scores
                weatherCode: root.weatherCode
                width: root.width

                onClicked: root.opened()
            }
        }
    }
}
