pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// The weather at the café. The card keeps its height without weather, so that nothing below it
// moves.
Card {
    id: root

    required property bool hasWeather
    required property int code
    required property bool isDay
    // The temperature, or a text that there is no weather.
    required property string temperature
    required property string feels
    // The source of the weather data.
    required property string credit

    implicitHeight: 60
    objectName: "WeatherCard"

    Row {
        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        spacing: 10
        visible: root.hasWeather

        WeatherGlyph {
            id: glyph

            anchors.verticalCenter: parent.verticalCenter
            code: root.code
            isDay: root.isDay
            size: 28
        }

        PlainText {
            Accessible.description: root.credit
            anchors.verticalCenter: parent.verticalCenter
            font: Theme.font.tempLarge
            text: root.temperature
        }
    }

    Column {
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2
        visible: root.hasWeather

        PlainText {
            anchors.right: parent.right
            text: glyph.conditionLabel
        }

        PlainText {
            anchors.right: parent.right
            color: Theme.color.textSecondary
            font: Theme.font.caption
            text: root.feels
        }
    }

    Row {
        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        spacing: 8
        visible: !root.hasWeather

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.color.textTertiary
            name: "arrow.clockwise"
            size: 16
        }

        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.color.textSecondary
            text: root.temperature
        }
    }

    Credit {
        anchors.fill: parent
        anchors.margins: -root.padding
        credit: root.credit
    }
}
