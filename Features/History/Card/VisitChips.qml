pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem
import Quorvel.History

// The chips on the banner: the weather, and the check-in mark.
Item {
    id: root

    required property visitCard card

    Capsule {
        id: weather

        anchors.bottom: parent.bottom
        anchors.left: parent.left
        bottomPadding: 5
        leftPadding: 11
        rightPadding: 11
        spacing: 7
        topPadding: 5
        visible: root.card.hasWeather

        WeatherGlyph {
            anchors.verticalCenter: parent.verticalCenter
            code: root.card.weatherCode
            isDay: root.card.isDay
            isOnWhite: true
            size: 17
        }

        PlainText {
            color: Theme.lightColor.textPrimary
            font: Theme.font.chipTemperature
            text: root.card.temperature
        }
    }

    Capsule {
        id: pill

        anchors.bottom: parent.bottom
        // On one line with the weather.
        anchors.bottomMargin: weather.visible ? (weather.height - pill.height) / 2 : 0
        anchors.right: parent.right
        bottomPadding: 4
        leftPadding: 10
        rightPadding: 10
        spacing: 6
        topPadding: 4

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.lightColor.success
            name: "checkmark.circle.fill"
            size: 13
        }

        PlainText {
            color: Theme.lightColor.textPrimary
            font: Theme.font.captionSemibold
            text: "Checked in"
        }
    }
}
