pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// Every glyph and rating control.
Column {
    id: root

    spacing: 12
    width: 308

    RatingRow {
        hint: "Fast enough for calls"
        label: "WiFi speed"
        objectName: "ratingRow"
        value: 2
        width: root.width

        onEdited: value => this.value = value
    }

    RatingStars {
        label: "Refused"
        objectName: "refusingStars"
        value: 3
    }

    Row {
        spacing: 14

        Repeater {
            model: 7

            RatingDotsColumn {
                required property int index

                label: "Quiet"
                objectName: "dots" + index
                score: index
            }
        }
    }

    Row {
        spacing: 14

        Repeater {
            model: 6

            SignalBarsView {
                required property int index

                bars: index
                heights: [5, 9, 13]
                objectName: "bars" + index
                size: 14
            }
        }
    }

    Row {
        spacing: 10

        Repeater {
            model: [0, 2, 3, 45, 51, 61, 71, 80, 85, 95]

            Column {
                id: dayAndNight

                required property int modelData

                spacing: 6

                WeatherGlyph {
                    code: dayAndNight.modelData
                    isDay: true
                    objectName: "day" + code
                    size: 22
                }

                WeatherGlyph {
                    code: dayAndNight.modelData
                    isDay: false
                    size: 22
                }
            }
        }
    }

    Item {
        height: capsule.height + 24
        width: capsule.width + 24

        SoftShadow {
            id: shadow

            anchors.centerIn: parent
            cornerRadius: capsule.height / 2
            height: capsule.height + 2 * shadow.reach
            objectName: "shadow"
            width: capsule.width + 2 * shadow.reach
        }

        Capsule {
            id: capsule

            anchors.centerIn: parent
            bottomPadding: 5
            leftPadding: 11
            objectName: "capsule"
            rightPadding: 11
            spacing: 7
            topPadding: 5

            WeatherGlyph {
                code: 77
                isDay: true
                objectName: "glyphOnWhite"
                isOnWhite: true
                size: 17
            }

            PlainText {
                color: Theme.lightColor.textPrimary
                text: "-1°"
            }
        }
    }

    Row {
        spacing: 14

        CupGlyph {
            objectName: "cup"
            size: 24
        }

        CupGlyph {
            size: 64
        }
    }
}
