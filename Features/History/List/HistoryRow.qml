pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// One visit: café, time, note and scores. A press anywhere in the row opens it.
Pressable {
    id: root

    // "14:05 · 22°"
    required property string moment
    required property string note
    required property bool hasWeather
    required property int weatherCode
    required property bool isDay
    required property list<string> ratingLabels
    required property list<int> scores

    Accessible.description: root.note === "" ? root.moment : root.moment + ", " + root.note
    // The list handles the arrow keys.
    activeFocusOnTab: false
    cornerRadius: 8
    focusGap: -2
    implicitHeight: Math.max(thumbnail.height, texts.implicitHeight) + 2 * 8

    Rectangle {
        anchors.fill: parent
        color: root.hovered ? Theme.color.hover : "transparent"
        radius: root.cornerRadius
    }

    Rectangle {
        id: thumbnail

        anchors.left: parent.left
        anchors.leftMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.color.card
        height: 36
        radius: 8
        width: 36

        WeatherGlyph {
            anchors.centerIn: parent
            code: root.weatherCode
            isDay: root.isDay
            size: 20
            visible: root.hasWeather
        }

        Symbol {
            anchors.centerIn: parent
            color: Theme.color.textTertiary
            name: "cup.and.saucer"
            size: 20
            visible: !root.hasWeather
        }
    }

    Column {
        id: texts

        anchors.left: thumbnail.right
        anchors.leftMargin: 12
        anchors.right: ratings.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2

        Row {
            id: firstLine

            spacing: 8
            width: parent.width

            PlainText {
                id: name

                Accessible.ignored: true
                elide: Text.ElideRight
                font: Theme.font.bodyMedium
                text: root.label
                width: Math.min(implicitWidth, firstLine.width - when.implicitWidth - 8)
            }

            PlainText {
                id: when

                Accessible.ignored: true
                anchors.baseline: name.baseline
                color: Theme.color.textSecondary
                font: Theme.font.caption
                text: root.moment
            }
        }

        PlainText {
            Accessible.ignored: true
            color: Theme.color.textSecondary
            elide: Text.ElideRight
            font: Theme.font.caption
            maximumLineCount: 2
            text: root.note
            visible: text.length > 0
            width: parent.width
            wrapMode: Text.Wrap
        }
    }

    Row {
        id: ratings

        anchors.right: chevron.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        spacing: 8

        Repeater {
            model: root.ratingLabels

            RatingDotsColumn {
                required property string modelData
                required property int index

                label: modelData
                score: root.scores[index]
            }
        }
    }

    Symbol {
        id: chevron

        anchors.right: parent.right
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.color.textTertiary
        name: "chevron.right"
        size: 12
    }
}
